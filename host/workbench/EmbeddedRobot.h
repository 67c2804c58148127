// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_EMBEDDEDROBOT_H
#define HOST_WORKBENCH_EMBEDDEDROBOT_H

#include "robot/Robot.h"
#include "rosbridge/protocol/Address.h"

#include <QString>

namespace host::workbench {

/// The simulated robot, served from within the workbench on the loopback address, so that there
/// is always something to connect to. The device reaches it through a socket like any other.
class EmbeddedRobot
{
public:
    /// Starts at once, on any free port where @p port is taken. The same @p seed makes the same
    /// world at every start.
    explicit EmbeddedRobot(quint16 port = rosbridge::protocol::Address::defaultPort,
                           quint32 seed = 1);

    /// Where it listens; empty if it could not start.
    QString address() const;

    /// Lets a recording take the laser's place, see robot::LaserNode::setLog().
    bool setLaserLog(const QString& file, double rate, QStringList* problems, QString* error)
    {
        return m_robot.setLaserLog(file, rate, problems, error);
    }

    /// Why it could not start, and what to do about it.
    const QString& error() const { return m_error; }

private:
    robot::Robot m_robot;
    QString m_error;
};

} // namespace host::workbench

#endif
