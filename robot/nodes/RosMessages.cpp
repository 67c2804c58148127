// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/RosMessages.h"

#include "robot/network/Clock.h"
#include "robot/simulation/Camera.h"
#include "robot/simulation/DriveBase.h"
#include "robot/simulation/LaserScan.h"
#include "robot/simulation/OccupancyGrid.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QCoreApplication>
#include <QStringList>

#include <cmath>

namespace robot::nodes {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::RosMessages)
};

template <typename Numbers>
QCborArray list(const Numbers& numbers)
{
    QCborArray array;
    for (const auto number : numbers)
        array.append(number);
    return array;
}

QCborValue floats(const std::vector<float>& numbers)
{
    return rosbridge::protocol::typedArray(QVector<float>(numbers.begin(), numbers.end()));
}

/// geometry_msgs/Vector3 and Point.
QCborMap vector(double x, double y, double z)
{
    return {{QStringLiteral("x"), x}, {QStringLiteral("y"), y}, {QStringLiteral("z"), z}};
}

QCborMap toMessage(const Quaternion& rotation)
{
    return {{QStringLiteral("x"), rotation.x},
            {QStringLiteral("y"), rotation.y},
            {QStringLiteral("z"), rotation.z},
            {QStringLiteral("w"), rotation.w}};
}

QCborMap toMessage(const simulation::Pose2D& pose)
{
    return {{QStringLiteral("position"), vector(pose.x, pose.y, 0.0)},
            {QStringLiteral("orientation"), toMessage(turn(pose.theta))}};
}

QCborMap toMessage(const simulation::Twist& twist)
{
    return {{QStringLiteral("linear"), vector(twist.linear_x, 0.0, 0.0)},
            {QStringLiteral("angular"), vector(0.0, 0.0, twist.angular_z)}};
}

/// Of a pose or a twist, all 0: not known.
const QCborArray& covariance()
{
    static const QCborArray zeros = list(std::array<double, 36>());
    return zeros;
}

/// The fields of @p map are among @p names.
bool hasOnly(const QCborMap& map, const QStringList& names, const QString& prefix, QString* error)
{
    for (auto field = map.cbegin(); field != map.cend(); ++field) {
        if (names.contains(field.key().toString()))
            continue;
        *error = Text::tr("geometry_msgs/Twist has no field \"%1\"; it has %2 there")
                     .arg(prefix + field.key().toString(), names.join(QStringLiteral(", ")));
        return false;
    }
    return true;
}

/// Reads a geometry_msgs/Vector3 that is @p msg's field @p name; only its @p axis counts.
std::optional<double> component(const QCborMap& msg, const QString& name, const QString& axis,
                                QString* error)
{
    static const QStringList axes{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    const QCborValue vector = msg.value(name);
    if (vector.isUndefined())
        return 0.0;
    if (!vector.isMap()) {
        *error = Text::tr("%1 must be an object with the numbers x, y and z").arg(name);
        return std::nullopt;
    }
    const QCborMap numbers = vector.toMap();
    if (!hasOnly(numbers, axes, name + QLatin1Char('.'), error))
        return std::nullopt;
    for (auto number = numbers.cbegin(); number != numbers.cend(); ++number) {
        if (number.value().isDouble() || number.value().isInteger())
            continue;
        *error = Text::tr("%1.%2 must be a number").arg(name, number.key().toString());
        return std::nullopt;
    }
    return numbers.value(axis).toDouble();
}

} // namespace

Quaternion turn(double theta)
{
    return {0.0, 0.0, std::sin(theta / 2.0), std::cos(theta / 2.0)};
}

QCborMap toMessage(const simulation::Header& header)
{
    return {{QStringLiteral("seq"), static_cast<qint64>(header.seq)},
            {QStringLiteral("stamp"), network::Clock::stamp(header.stamp)},
            {QStringLiteral("frame_id"), header.frame_id}};
}

QCborMap toMessage(const simulation::LaserScan& scan)
{
    return {{QStringLiteral("header"), toMessage(scan.header)},
            {QStringLiteral("angle_min"), scan.angle_min},
            {QStringLiteral("angle_max"), scan.angle_max},
            {QStringLiteral("angle_increment"), scan.angle_increment},
            {QStringLiteral("time_increment"), scan.time_increment},
            {QStringLiteral("scan_time"), scan.scan_time},
            {QStringLiteral("range_min"), scan.range_min},
            {QStringLiteral("range_max"), scan.range_max},
            {QStringLiteral("ranges"), floats(scan.ranges)},
            {QStringLiteral("intensities"), floats(scan.intensities)}};
}

QCborMap toMessage(const simulation::Odometry& odometry)
{
    return {{QStringLiteral("header"), toMessage(odometry.header)},
            {QStringLiteral("child_frame_id"), odometry.child_frame_id},
            {QStringLiteral("pose"), QCborMap{{QStringLiteral("pose"), toMessage(odometry.pose)},
                                              {QStringLiteral("covariance"), covariance()}}},
            {QStringLiteral("twist"), QCborMap{{QStringLiteral("twist"), toMessage(odometry.twist)},
                                               {QStringLiteral("covariance"), covariance()}}}};
}

QCborMap toMessage(const simulation::OccupancyGrid& grid)
{
    const QCborMap info{{QStringLiteral("map_load_time"), network::Clock::stamp(grid.header.stamp)},
                        {QStringLiteral("resolution"), grid.resolution},
                        {QStringLiteral("width"), static_cast<qint64>(grid.width)},
                        {QStringLiteral("height"), static_cast<qint64>(grid.height)},
                        {QStringLiteral("origin"), toMessage(grid.origin)}};
    return {{QStringLiteral("header"), toMessage(grid.header)},
            {QStringLiteral("info"), info},
            {QStringLiteral("data"), list(grid.data)}};
}

QCborMap toMessage(const simulation::CameraInfo& info)
{
    static const QCborMap wholePicture{{QStringLiteral("x_offset"), 0},
                                       {QStringLiteral("y_offset"), 0},
                                       {QStringLiteral("height"), 0},
                                       {QStringLiteral("width"), 0},
                                       {QStringLiteral("do_rectify"), false}};
    return {{QStringLiteral("header"), toMessage(info.header)},
            {QStringLiteral("height"), static_cast<qint64>(info.height)},
            {QStringLiteral("width"), static_cast<qint64>(info.width)},
            {QStringLiteral("distortion_model"), info.distortion_model},
            {QStringLiteral("D"), list(info.D)},
            {QStringLiteral("K"), list(info.K)},
            {QStringLiteral("R"), list(info.R)},
            {QStringLiteral("P"), list(info.P)},
            {QStringLiteral("binning_x"), 0},
            {QStringLiteral("binning_y"), 0},
            {QStringLiteral("roi"), wholePicture}};
}

QCborMap compressedImageMessage(const simulation::Header& header, const QString& format,
                                const QByteArray& data)
{
    return {{QStringLiteral("header"), toMessage(header)},
            {QStringLiteral("format"), format},
            {QStringLiteral("data"), data}};
}

QCborMap circleMessage(const simulation::Header& header, double radius)
{
    constexpr int corners = 32;
    constexpr double turn = 2 * 3.14159265358979323846;
    QCborArray points;
    for (int corner = 0; corner < corners; ++corner) {
        const double angle = turn * corner / corners;
        points.append(vector(radius * std::cos(angle), radius * std::sin(angle), 0));
    }
    return {{QStringLiteral("header"), toMessage(header)},
            {QStringLiteral("polygon"), QCborMap{{QStringLiteral("points"), points}}}};
}

QCborMap boolMessage(bool data)
{
    return {{QStringLiteral("data"), data}};
}

QCborMap transformMessage(const simulation::Header& header, const QString& child, double x,
                          double y, double z, const Quaternion& rotation)
{
    const QCborMap transform{{QStringLiteral("translation"), vector(x, y, z)},
                             {QStringLiteral("rotation"), toMessage(rotation)}};
    return {{QStringLiteral("header"), toMessage(header)},
            {QStringLiteral("child_frame_id"), child},
            {QStringLiteral("transform"), transform}};
}

std::optional<simulation::Twist> toTwist(const QCborMap& msg, QString* error)
{
    const QString linear = QStringLiteral("linear");
    const QString angular = QStringLiteral("angular");
    if (!hasOnly(msg, {linear, angular}, QString(), error))
        return std::nullopt;
    const auto linear_x = component(msg, linear, QStringLiteral("x"), error);
    if (!linear_x)
        return std::nullopt;
    const auto angular_z = component(msg, angular, QStringLiteral("z"), error);
    if (!angular_z)
        return std::nullopt;
    return simulation::Twist{*linear_x, *angular_z};
}

} // namespace robot::nodes
