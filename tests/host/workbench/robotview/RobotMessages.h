// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TESTS_ROBOTMESSAGES_H
#define HOST_WORKBENCH_TESTS_ROBOTMESSAGES_H

#include "rosbridge/protocol/Angle.h"

#include <QCborArray>
#include <QCborMap>
#include <QString>

#include <cmath>
#include <initializer_list>

/// What a robot sends, as ROS's messages; metres and radians.
namespace message {

/// The message with another value of one field.
inline QCborMap with(QCborMap message, const char* field, const QCborValue& value)
{
    message[QString(field)] = value;
    return message;
}

inline QCborMap header(const QString& frame, int milliseconds = 0)
{
    return {{"stamp",
             QCborMap{{"secs", milliseconds / 1000}, {"nsecs", milliseconds % 1000 * 1000000}}},
            {"frame_id", frame}};
}

inline QCborMap vector(double x, double y, double z = 0)
{
    return {{"x", x}, {"y", y}, {"z", z}};
}

inline QCborMap turn(double theta)
{
    return {{"x", 0}, {"y", 0}, {"z", std::sin(theta / 2)}, {"w", std::cos(theta / 2)}};
}

inline QCborMap pose(double x, double y, double theta)
{
    return {{"position", vector(x, y)}, {"orientation", turn(theta)}};
}

inline QCborMap transform(const QString& parent, const QString& child, const QCborMap& translation,
                          const QCborMap& rotation, int milliseconds = 0)
{
    return {{"header", header(parent, milliseconds)},
            {"child_frame_id", child},
            {"transform", QCborMap{{"translation", translation}, {"rotation", rotation}}}};
}

inline QCborMap transform(const QString& parent, const QString& child, double x, double y,
                          double theta, int milliseconds = 0)
{
    return transform(parent, child, vector(x, y), turn(theta), milliseconds);
}

inline QCborMap transforms(std::initializer_list<QCborMap> list)
{
    QCborArray array;
    for (const QCborMap& transform : list)
        array.append(transform);
    return {{"transforms", array}};
}

inline QCborMap odometry(const QString& frame, const QString& child, double x, double y,
                         double theta)
{
    return {{"header", header(frame)},
            {"child_frame_id", child},
            {"pose", QCborMap{{"pose", pose(x, y, theta)}}}};
}

inline QCborMap footprint(const QString& frame, std::initializer_list<QCborMap> points)
{
    QCborArray array;
    for (const QCborMap& point : points)
        array.append(point);
    return {{"header", header(frame)}, {"polygon", QCborMap{{"points", array}}}};
}

inline QCborMap map(const QString& frame, int width, int height, double resolution,
                    const QCborMap& origin, std::initializer_list<int> cells)
{
    QCborArray data;
    for (const int cell : cells)
        data.append(cell);
    return {{"header", header(frame)},
            {"info", QCborMap{{"width", width},
                              {"height", height},
                              {"resolution", resolution},
                              {"origin", origin}}},
            {"data", data}};
}

/// From right to left, the first ray at @p angle.
inline QCborMap scan(const QString& frame, double angle, double increment,
                     std::initializer_list<double> ranges, int milliseconds = 0)
{
    QCborArray list;
    for (const double range : ranges)
        list.append(range);
    return {{"header", header(frame, milliseconds)},
            {"angle_min", angle},
            {"angle_max", angle},
            {"angle_increment", increment},
            {"time_increment", 0},
            {"scan_time", 0.1},
            {"range_min", 0.1},
            {"range_max", 5.0},
            {"ranges", list}};
}

inline QCborMap jointStates(std::initializer_list<const char*> names,
                            std::initializer_list<double> degrees)
{
    QCborArray nameList;
    for (const char* name : names)
        nameList.append(QString(name));
    QCborArray positionList;
    for (const double position : degrees)
        positionList.append(rosbridge::protocol::toRadians(position));
    return {{"name", nameList}, {"position", positionList}};
}

inline QCborMap armState(std::initializer_list<const char*> names,
                         std::initializer_list<double> targets)
{
    const QCborMap joints = jointStates(names, targets);
    return {{"joint_names", joints["name"]},
            {"desired", QCborMap{{"positions", joints["position"]}}}};
}

inline QCborMap cameraInfo()
{
    return {{QStringLiteral("width"), 640}, {QStringLiteral("height"), 480}};
}

inline QCborMap truth(bool data)
{
    return {{"data", data}};
}

} // namespace message

#endif
