// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_LOG_H
#define ROBOT_NETWORK_LOG_H

#include <QString>

namespace rosbridge::server {
class Endpoint;
} // namespace rosbridge::server

namespace robot::network {

class Clock;

/// The robot's diary, as the topic /rosout with the type rosgraph_msgs/Log.
class Log
{
public:
    enum class Level // the numbers are ROS's
    {
        Debug = 1,
        Info = 2,
        Warning = 4,
        Error = 8,
        Fatal = 16,
    };

    /// Both must outlive the log.
    Log(rosbridge::server::Endpoint& endpoint, const Clock& clock);

    static constexpr int longestText = 2000; ///< characters; a longer one is cut

    /// Writes one line, for LogWriter: @p name is the part of the robot that speaks. Line breaks in
    /// @p text become spaces.
    void write(Level level, const QString& name, const QString& text);

private:
    rosbridge::server::Endpoint& m_endpoint;
    const Clock& m_clock;
    quint32 m_lastSequence = 0;
};

} // namespace robot::network

#endif
