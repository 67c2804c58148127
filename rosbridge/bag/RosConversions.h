// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_BAG_ROSCONVERSIONS_H
#define ROSBRIDGE_BAG_ROSCONVERSIONS_H

#include <QString>

#include <ros/time.h>

#include <algorithm>
#include <chrono>
#include <exception>

namespace rosbridge::bag {

/// The nearest time that rosbag can tell apart.
inline ros::Time toRos(std::chrono::nanoseconds time)
{
    using Time = std::chrono::nanoseconds;
    const Time within = std::clamp(time, Time(1), Time(std::chrono::seconds(ros::TIME_MAX.sec)));
    ros::Time result;
    result.fromNSec(static_cast<std::uint64_t>(within.count()));
    return result;
}

inline std::chrono::nanoseconds fromRos(const ros::Time& time)
{
    return std::chrono::nanoseconds(static_cast<std::chrono::nanoseconds::rep>(time.toNSec()));
}

inline QString inWords(const std::exception& exception)
{
    return QString::fromLocal8Bit(exception.what()).trimmed();
}

} // namespace rosbridge::bag

#endif
