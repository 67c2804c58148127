// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_CANONICALNAME_H
#define ROSBRIDGE_PROTOCOL_CANONICALNAME_H

#include <QString>

namespace rosbridge::protocol {

/// The one spelling of a topic's or service's name, "/scan": rosbridge takes a name with and
/// without the leading slash for the same. Both ends compare and look up names in this form.
/// An empty name stays empty.
QString canonicalName(const QString& name);

/// The one spelling of a type, ROS 1's "sensor_msgs/LaserScan": ROS 2 writes
/// "sensor_msgs/msg/LaserScan", and "std_srvs/srv/Trigger".
QString canonicalType(const QString& type);

} // namespace rosbridge::protocol

#endif
