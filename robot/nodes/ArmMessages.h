// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_ARMMESSAGES_H
#define ROBOT_NODES_ARMMESSAGES_H

#include "robot/simulation/Arm.h"
#include "robot/simulation/Header.h"

#include <QCborMap>
#include <QString>

#include <optional>
#include <vector>

/// What the arm tells and is told, as ROS's messages: with radians for its degrees.
namespace robot::nodes {

/// sensor_msgs/JointState.
QCborMap jointStateMessage(const simulation::Header& header, const simulation::Arm& arm);

/// control_msgs/JointTrajectoryControllerState; the velocities desired are the axes' speeds.
QCborMap controllerStateMessage(const simulation::Header& header, const simulation::Arm& arm);

/// Reads a trajectory_msgs/JointTrajectory of one point, whose velocities are the speeds and may be
/// left out. Nothing, and in @p error the field and what it must be, if a field is unfit; whether
/// the arm can do it is the arm's to say.
std::optional<std::vector<simulation::Arm::Movement>> toMovements(const QCborMap& trajectory,
                                                                  QString* error);

} // namespace robot::nodes

#endif
