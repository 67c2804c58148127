// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/TimeStamp.h"

#include <limits>

namespace host::device::readers {

/// ROS 1 has {secs, nsecs}, ROS 2 {sec, nanosec} with signed seconds.
std::uint32_t milliseconds(rosbridge::protocol::Fields stamp)
{
    const bool isRos2 = stamp.has("sec");
    const qint64 seconds =
        isRos2 ? stamp.integer("sec", std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max())
               : stamp.integer("secs", 0, std::numeric_limits<std::uint32_t>::max());
    const qint64 nanoseconds = stamp.integer(isRos2 ? "nanosec" : "nsecs", 0, 999999999);
    return static_cast<std::uint32_t>(seconds * 1000 + nanoseconds / 1000000);
}

} // namespace host::device::readers
