// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_ROSTYPES_H
#define HOST_DEVICE_TESTS_ROSTYPES_H

#include <QCborMap>
#include <QMetaType>
#include <QString>

#include <optional>

/// Messages as the Python rosbridge servers of ROS 1 and ROS 2 have them, and what becomes of them
/// on the way to a client that asked for CBOR. Those servers convert by the type of each field:
///
/// - text, numbers, true and false, time and duration, uint8[] as bytes, bool[] and each numeric
///   array of any length as a typed array are known;
/// - of everything else that is a list, each element is taken for a message; text and numbers are
///   none, and so an array of texts fails in ROS 1 unless it is empty, and an array of a fixed
///   length fails in both: the message is dropped, which only the server's own log tells;
/// - ROS 2 knows string[] as well. Its first releases converted nothing at all.
namespace ros_types {

enum class Ros
{
    One,
    Two,
    FirstTwo, ///< of those first releases
};

/// "sensor_msgs/LaserScan", as this ROS writes it.
QString spelled(Ros ros, const QString& type);

/// A message of @p type, as ROS 1 writes it, with something in every field and array.
QCborMap sample(Ros ros, const QString& type);

/// @p message as it is put into CBOR; nothing where that fails.
std::optional<QCborMap> toCbor(Ros ros, const QString& type, const QCborMap& message);

} // namespace ros_types

Q_DECLARE_METATYPE(ros_types::Ros)

#endif
