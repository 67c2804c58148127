// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_EVENTS_EVENT_H
#define HOST_DEVICE_EVENTS_EVENT_H

#include <QString>

#include <chrono>

namespace host::device::events {

/// As rosgraph_msgs/Log has them.
enum class Level
{
    Debug,
    Info,
    Warning,
    Error,
    Fatal,
};

/// What happened, in one line.
struct Event
{
    Level level = Level::Info;
    QString source; ///< the node, or the part of the robot that it is about
    QString text;   ///< as whoever reported it wrote it, of any length
    std::chrono::system_clock::time_point time = std::chrono::system_clock::now();
};

} // namespace host::device::events

#endif
