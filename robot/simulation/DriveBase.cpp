// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/DriveBase.h"

#include "robot/simulation/World.h"

#include <algorithm>
#include <cmath>

namespace robot::simulation {

DriveBase::DriveBase(World& world, quint32 seed) : m_world(world), m_wander(seed) {}

bool DriveBase::command(const Twist& twist, QString* error)
{
    if (!std::isfinite(twist.linear_x) || !std::isfinite(twist.angular_z)) {
        if (error) {
            *error = tr("The velocity command linear.x = %1, angular.z = %2 is refused: both must "
                        "be finite numbers.")
                         .arg(twist.linear_x)
                         .arg(twist.angular_z);
        }
        return false;
    }
    m_command = {{std::clamp(twist.linear_x, -maximumLinear, maximumLinear),
                  std::clamp(twist.angular_z, -maximumAngular, maximumAngular)},
                 m_world.time()};
    return true;
}

void DriveBase::stop()
{
    endCommand();
    m_wanders = false;
}

void DriveBase::setEnabled(bool isEnabled)
{
    m_isEnabled = isEnabled;
    if (!isEnabled)
        endCommand();
}

void DriveBase::control()
{
    if (m_command && m_world.time() - m_command->time >= commandLifetime)
        m_command.reset();
    if (m_isEnabled && m_command)
        m_world.setRobotTwist(m_command->twist);
    else if (m_isEnabled && m_wanders)
        m_world.setRobotTwist(m_wander.twist(m_world));
    else
        m_world.setRobotTwist({});
}

Odometry DriveBase::odometry() const
{
    Odometry odometry;
    odometry.header.stamp = m_world.time();
    odometry.header.frame_id = odometryFrameId;
    odometry.child_frame_id = baseFrameId;
    odometry.pose = toFrame(FloorPlan::robotStart, m_world.robotPose());
    odometry.twist = m_world.robotTwist();
    return odometry;
}

} // namespace robot::simulation
