// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_ROSMESSAGES_H
#define ROBOT_NODES_ROSMESSAGES_H

#include "robot/simulation/Geometry.h"
#include "robot/simulation/Header.h"

#include <QByteArray>
#include <QCborMap>
#include <QString>

#include <optional>

/// What the simulation measures and is told, as ROS's messages.
namespace robot::simulation {
struct CameraInfo;
struct LaserScan;
struct OccupancyGrid;
struct Odometry;
} // namespace robot::simulation

namespace robot::nodes {

/// A turn in space as geometry_msgs/Quaternion.
struct Quaternion
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;
};

/// About the vertical axis by @p theta, in radians.
Quaternion turn(double theta);

QCborMap toMessage(const simulation::Header& header);
QCborMap toMessage(const simulation::LaserScan& scan);
QCborMap toMessage(const simulation::Odometry& odometry);
QCborMap toMessage(const simulation::OccupancyGrid& grid);
QCborMap toMessage(const simulation::CameraInfo& info);

/// sensor_msgs/CompressedImage.
QCborMap compressedImageMessage(const simulation::Header& header, const QString& format,
                                const QByteArray& data);

/// geometry_msgs/PolygonStamped: a circle about the frame's origin, as a polygon; metres.
QCborMap circleMessage(const simulation::Header& header, double radius);

/// std_msgs/Bool.
QCborMap boolMessage(bool data);

/// geometry_msgs/TransformStamped: where the frame @p child is in the header's; metres.
QCborMap transformMessage(const simulation::Header& header, const QString& child, double x,
                          double y, double z, const Quaternion& rotation);

/// Reads a geometry_msgs/Twist; a field that is missing is 0. Nothing, and in @p error the field
/// and what it must be, if a field is no number or there is none of its name.
std::optional<simulation::Twist> toTwist(const QCborMap& msg, QString* error);

} // namespace robot::nodes

#endif
