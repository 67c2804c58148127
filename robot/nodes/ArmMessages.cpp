// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/ArmMessages.h"

#include "robot/network/Clock.h"
#include "robot/nodes/RosMessages.h"
#include "rosbridge/protocol/Angle.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QCoreApplication>
#include <QVector>

namespace robot::nodes {

using simulation::Arm;

namespace {

struct ArmText
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::ArmMessages)
};

QCborArray names()
{
    QCborArray names;
    for (int axis = 0; axis < Arm::axisCount; ++axis)
        names.append(Arm::name(axis));
    return names;
}

/// In radians what @p degrees gives of each axis.
template <typename Degrees>
QCborArray ofEachAxis(const Arm& arm, Degrees degrees)
{
    QCborArray numbers;
    for (const Arm::Axis& axis : arm.axes())
        numbers.append(rosbridge::protocol::toRadians(degrees(axis)));
    return numbers;
}

QCborArray positions(const Arm& arm)
{
    return ofEachAxis(arm, [](const Arm::Axis& axis) { return axis.position; });
}

QCborArray velocities(const Arm& arm)
{
    return ofEachAxis(arm, [](const Arm::Axis& axis) { return axis.velocity; });
}

/// trajectory_msgs/JointTrajectoryPoint.
QCborMap pointMessage(const QCborArray& positions, const QCborArray& velocities)
{
    return {{QStringLiteral("positions"), positions},
            {QStringLiteral("velocities"), velocities},
            {QStringLiteral("accelerations"), QCborArray()},
            {QStringLiteral("effort"), QCborArray()},
            {QStringLiteral("time_from_start"), network::Clock::stamp(simulation::Time(0))}};
}

/// The trajectory's only point; nothing if it has none or several.
std::optional<QCborMap> onlyPoint(const QCborMap& trajectory)
{
    const QCborArray points = trajectory.value(QLatin1String("points")).toArray();
    if (points.size() != 1 || !points.first().isMap())
        return std::nullopt;
    return points.first().toMap();
}

/// The point's float64[], radians, with one number for each of the joints.
std::optional<QVector<double>> toDegrees(const QCborMap& point, const QString& field,
                                         int jointCount, QString* error)
{
    const std::optional<QVector<float>> numbers =
        rosbridge::protocol::toFloats(point.value(field), error);
    if (!numbers) {
        *error = ArmText::tr("points[0].%1: %2").arg(field, *error);
        return std::nullopt;
    }
    if (numbers->size() != jointCount) {
        *error =
            ArmText::tr("points[0].%1 must have a number for each of the %2 joint_names, not %3")
                .arg(field)
                .arg(jointCount)
                .arg(numbers->size());
        return std::nullopt;
    }
    QVector<double> degrees;
    for (const float number : *numbers)
        degrees.append(rosbridge::protocol::toDegrees(number));
    return degrees;
}

/// ROS leaves a list out by sending an empty one.
bool isLeftOut(const QCborValue& list)
{
    return list.isUndefined() || list.isNull() || (list.isArray() && list.toArray().isEmpty());
}

} // namespace

QCborMap jointStateMessage(const simulation::Header& header, const Arm& arm)
{
    return {{QStringLiteral("header"), toMessage(header)},
            {QStringLiteral("name"), names()},
            {QStringLiteral("position"), positions(arm)},
            {QStringLiteral("velocity"), velocities(arm)},
            {QStringLiteral("effort"), QCborArray()}};
}

QCborMap controllerStateMessage(const simulation::Header& header, const Arm& arm)
{
    const auto target = [](const Arm::Axis& axis) { return axis.target; };
    const auto speed = [](const Arm::Axis& axis) { return axis.speed; };
    const auto error = [](const Arm::Axis& axis) { return axis.target - axis.position; };
    return {
        {QStringLiteral("header"), toMessage(header)},
        {QStringLiteral("joint_names"), names()},
        {QStringLiteral("desired"), pointMessage(ofEachAxis(arm, target), ofEachAxis(arm, speed))},
        {QStringLiteral("actual"), pointMessage(positions(arm), velocities(arm))},
        {QStringLiteral("error"), pointMessage(ofEachAxis(arm, error), QCborArray())}};
}

std::optional<std::vector<Arm::Movement>> toMovements(const QCborMap& trajectory, QString* error)
{
    const QCborValue joints = trajectory.value(QLatin1String("joint_names"));
    std::vector<Arm::Movement> movements;
    for (const QCborValue name : joints.toArray()) {
        if (name.isString())
            movements.push_back({name.toString()});
    }
    const int count = static_cast<int>(movements.size());
    if (!joints.isArray() || joints.toArray().size() != count) {
        *error = ArmText::tr("joint_names must be a list of text");
        return std::nullopt;
    }
    const std::optional<QCborMap> point = onlyPoint(trajectory);
    if (!point) {
        *error =
            ArmText::tr("points must be a list of one point; send the next one when it is due");
        return std::nullopt;
    }

    const QString positions = QStringLiteral("positions");
    const std::optional<QVector<double>> targets = toDegrees(*point, positions, count, error);
    if (!targets)
        return std::nullopt;
    for (int i = 0; i < count; ++i)
        movements.at(i).target = targets->at(i);

    const QString velocities = QStringLiteral("velocities");
    if (isLeftOut(point->value(velocities)))
        return movements;
    const std::optional<QVector<double>> speeds = toDegrees(*point, velocities, count, error);
    if (!speeds)
        return std::nullopt;
    for (int i = 0; i < count; ++i)
        movements.at(i).speed = speeds->at(i);
    return movements;
}

} // namespace robot::nodes
