// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_CLOCK_H
#define ROBOT_NETWORK_CLOCK_H

#include <QCborMap>
#include <QElapsedTimer>

#include <chrono>

namespace robot::network {

/// The simulation's time: 0 when the robot is built, and from then on as fast as real time,
/// whatever is done to the computer's clock. Its owner advances it; where that takes longer than
/// the longest step, the process being suspended, say, time stands still for the rest.
class Clock
{
public:
    explicit Clock(std::chrono::nanoseconds longestStep = std::chrono::seconds(1));

    /// What the last advance() came to.
    std::chrono::nanoseconds now() const { return m_now; }

    /// Returns how much time has passed since the last call, or the beginning.
    std::chrono::nanoseconds advance();

    /// Jumps to @p time, from where advance() goes on: a recording has its own time.
    void set(std::chrono::nanoseconds time) { m_now = time; }

    /// A time as ROS messages have it: {secs, nsecs}.
    static QCborMap stamp(std::chrono::nanoseconds time);

private:
    std::chrono::nanoseconds m_longestStep;
    std::chrono::nanoseconds m_now{0};
    QElapsedTimer m_sinceThen;
};

} // namespace robot::network

#endif
