// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/Trajectory.h"

#include "rosbridge/protocol/Angle.h"

#include <QCborArray>

#include <algorithm>
#include <cmath>

namespace host::workbench::armview {

using device::readers::JointTable;
using robotview::RobotState;

namespace {

constexpr double farthestDegrees = 300;  // of an axis of a robot that takes speeds
constexpr float anyTurn = 3600;          // degrees about the offset of another robot's axis,
constexpr float anySlide = 10000;        // and millimetres
constexpr double shortestDuration = 0.2; // seconds; an arm cannot be anywhere at once

/// ROS 2's servers understand the names of ROS 1 as well.
QCborMap duration(double seconds)
{
    constexpr double nanoseconds = 1e9;
    const double whole = std::floor(seconds);
    return {{QStringLiteral("secs"), static_cast<qint64>(whole)},
            {QStringLiteral("nsecs"), static_cast<qint64>((seconds - whole) * nanoseconds)}};
}

QCborMap message(const QCborArray& names, const QCborMap& point)
{
    return {{QStringLiteral("joint_names"), names}, {QStringLiteral("points"), QCborArray{point}}};
}

QCborMap withSpeeds(const Goals& goals, const JointTable& joints)
{
    QCborArray names;
    QCborArray positions;
    QCborArray velocities;
    for (int axis = 0; axis < axisCount; ++axis) {
        const auto& goal = goals.at(static_cast<std::size_t>(axis));
        const JointTable::Joint& joint = joints.joint(axis);
        if (!goal || joint.name.isEmpty())
            continue;
        names.append(joint.name);
        positions.append(joint.position(double(goal->target)));
        // A speed has no direction and no offset.
        const JointTable::Joint straight{joint.name, joint.unit, {}, {}};
        velocities.append(straight.position(double(goal->speed)));
    }
    return message(names, {{QStringLiteral("positions"), positions},
                           {QStringLiteral("velocities"), velocities}});
}

/// All joints arrive when the slowest does. A velocity would be that at the end, where controllers
/// want none.
std::optional<QCborMap> withDuration(const Goals& goals, const RobotState& robot, QString* fault)
{
    QCborArray names;
    QCborArray positions;
    double seconds = shortestDuration;
    for (int axis = 0; axis < axisCount; ++axis) {
        const JointTable::Joint& joint = robot.joints().joint(axis);
        if (joint.name.isEmpty())
            continue;
        const RobotState::Axis& where = robot.axis(axis);
        if (!where.present) {
            *fault = Trajectory::tr("the position of axis %1 is not known").arg(axis + 1);
            return std::nullopt;
        }
        const auto& goal = goals.at(static_cast<std::size_t>(axis));
        float target = goal ? *where.present : where.target.value_or(*where.present);
        if (goal && goal->speed > 0) {
            target = goal->target;
            const double distance = std::abs(double(target) - double(*where.present));
            seconds = std::max(seconds, distance / double(goal->speed));
        }
        names.append(joint.name);
        positions.append(joint.position(double(target)));
    }
    return message(names, {{QStringLiteral("positions"), positions},
                           {QStringLiteral("time_from_start"), duration(seconds)}});
}

/// Of the first goal that is beyond what an axis can do, or of no goal at all; otherwise empty.
QString faultOf(const Goals& goals, const JointTable& joints)
{
    bool hasGoal = false;
    for (int axis = 0; axis < axisCount; ++axis) {
        const auto& goal = goals.at(static_cast<std::size_t>(axis));
        if (!goal || joints.joint(axis).name.isEmpty())
            continue;
        hasGoal = true;
        const AxisLimits limits = Trajectory::limits(joints, axis);
        if (!(goal->target >= limits.minimum && goal->target <= limits.maximum))
            return Trajectory::tr("the target of axis %1 is %2, not from %3 to %4")
                .arg(axis + 1)
                .arg(double(goal->target))
                .arg(double(limits.minimum))
                .arg(double(limits.maximum));
        if (!(goal->speed >= 0 && goal->speed <= fastestSpeed))
            return Trajectory::tr("the speed of axis %1 is %2, not from 0 to %3")
                .arg(axis + 1)
                .arg(double(goal->speed))
                .arg(double(fastestSpeed));
    }
    return hasGoal ? QString() : Trajectory::tr("no axis has a target");
}

} // namespace

bool Trajectory::takesSpeeds(const JointTable& joints)
{
    for (int axis = 0; axis < axisCount; ++axis) {
        if (joints.contains(JointTable::ownName(axis)))
            return true;
    }
    return false;
}

AxisLimits Trajectory::limits(const JointTable& joints, int axis)
{
    const JointTable::Joint& joint = joints.joint(axis);
    if (takesSpeeds(joints)) {
        const float first = joint.place(0);
        const float last = joint.place(rosbridge::protocol::toRadians(farthestDegrees));
        return {std::min(first, last), std::max(first, last)};
    }
    const auto middle = static_cast<float>(joint.offset);
    const float reach = joint.unit == JointTable::Unit::Metres ? anySlide : anyTurn;
    return {middle - reach, middle + reach};
}

std::optional<QCborMap> Trajectory::to(const Goals& goals, const RobotState& robot, QString* fault)
{
    *fault = faultOf(goals, robot.joints());
    if (!fault->isEmpty())
        return std::nullopt;
    if (takesSpeeds(robot.joints()))
        return withSpeeds(goals, robot.joints());
    return withDuration(goals, robot, fault);
}

} // namespace host::workbench::armview
