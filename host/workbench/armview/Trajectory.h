// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_TRAJECTORY_H
#define HOST_WORKBENCH_ARMVIEW_TRAJECTORY_H

#include "host/device/variables/Positions.h"
#include "host/workbench/robotview/RobotState.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QString>

#include <array>
#include <optional>

namespace host::workbench::armview {

constexpr int axisCount = robotview::RobotState::axisCount;

/// What is asked of one axis.
using Goal = device::variables::Position::Axis;

/// Of each axis; those without a goal go on as they are.
using Goals = std::array<std::optional<Goal>, axisCount>;

/// Where an axis may be sent, in its unit. A robot with joints of its own does not tell its limits:
/// these are then only what nobody means.
struct AxisLimits
{
    float minimum;
    float maximum;
};

constexpr float fastestSpeed = 143; ///< of any axis

/// Makes commands to an arm: trajectory_msgs/JointTrajectory with one point.
class Trajectory
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::armview::Trajectory)

public:
    using JointTable = device::readers::JointTable;

    /// Whether the joints are those that docs/robot-link.md describes: such a robot takes speeds,
    /// and a command to some of its axes. Any other one is taken for a trajectory controller of
    /// ROS, which takes the time of arrival, and a command to all of its joints.
    static bool takesSpeeds(const JointTable& joints);

    static AxisLimits limits(const JointTable& joints, int axis);

    /// The message that sends the axes of @p goals there; @p robot tells which joints they are, and
    /// where the others are. Nothing if the goals cannot be sent; @p fault then says why.
    static std::optional<QCborMap> to(const Goals& goals, const robotview::RobotState& robot,
                                      QString* fault);
};

} // namespace host::workbench::armview

#endif
