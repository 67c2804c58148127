// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_SCANMESSAGE_H
#define HOST_DEVICE_TESTS_SCANMESSAGE_H

#include <QCborArray>
#include <QCborMap>

/// A small sensor_msgs/LaserScan in which nothing is wrong.
inline QCborMap scanMessage(int number)
{
    const QCborMap stamp{{QStringLiteral("secs"), 1}, {QStringLiteral("nsecs"), 0}};
    QCborMap message{
        {QStringLiteral("header"), QCborMap{{QStringLiteral("seq"), number},
                                            {QStringLiteral("stamp"), stamp},
                                            {QStringLiteral("frame_id"), QStringLiteral("laser")}}},
        {QStringLiteral("ranges"), QCborArray{1, 2, 3}}};
    for (const char* field : {"angle_min", "angle_max", "angle_increment", "time_increment",
                              "scan_time", "range_min", "range_max"})
        message.insert(QLatin1String(field), 0.5);
    return message;
}

#endif
