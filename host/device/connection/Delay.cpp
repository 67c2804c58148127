// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Delay.h"

#include <algorithm>
#include <limits>

namespace host::device::connection {

namespace {

using namespace std::chrono_literals;

// No line that is full answers sooner: there is that much in the system's buffers.
constexpr auto quick = 200ms;

constexpr auto lately = 2s;

/// Of ROS 1 or ROS 2; 0 where there is none.
std::chrono::milliseconds stampOf(const QCborMap& message)
{
    const QCborMap stamp =
        message.value(QLatin1String("header")).toMap().value(QLatin1String("stamp")).toMap();
    const bool isRos2 = stamp.contains(QLatin1String("sec"));
    const qint64 seconds = stamp.value(QLatin1String(isRos2 ? "sec" : "secs")).toInteger();
    const qint64 nanoseconds = stamp.value(QLatin1String(isRos2 ? "nanosec" : "nsecs")).toInteger();
    if (seconds < 0 || seconds > std::numeric_limits<quint32>::max())
        return 0ms;
    return std::chrono::seconds(seconds) + std::chrono::duration_cast<std::chrono::milliseconds>(
                                               std::chrono::nanoseconds(nanoseconds));
}

} // namespace

void Delay::hear(const QString& name, const QCborMap& message, Clock::time_point now)
{
    const std::chrono::milliseconds stamp = stampOf(message);
    if (stamp == 0ms)
        return;
    Topic& topic = m_topics[name];
    if (stamp == topic.stamp)
        return;
    const auto took =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()) - stamp;
    topic.stamp = stamp;
    topic.shortest = std::min(took, topic.shortest.value_or(took));
    topic.delay = took - *topic.shortest;
    topic.heard = now;
}

void Delay::answered(std::chrono::milliseconds after)
{
    if (after > quick)
        return;
    for (Topic& topic : m_topics)
        topic.shortest.reset();
}

std::optional<std::chrono::milliseconds> Delay::value(Clock::time_point now) const
{
    std::optional<std::chrono::milliseconds> least;
    for (const Topic& topic : m_topics) {
        if (now - topic.heard < lately)
            least = std::min(topic.delay, least.value_or(topic.delay));
    }
    return least;
}

} // namespace host::device::connection
