// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_TIMING_H
#define HOST_DEVICE_CONNECTION_TIMING_H

#include "rosbridge/client/Client.h"

#include <chrono>

namespace host::device::connection {

/// How long a connection waits; tests are less patient than people.
struct Timing
{
    std::chrono::milliseconds frame{300};   ///< one frame of the connecting animation
    std::chrono::milliseconds answer{5000}; ///< for each answer of the robot's services
    rosbridge::client::Client::Timeouts link;
    std::chrono::milliseconds firstPause{1000};    ///< before a lost link is joined again
    std::chrono::milliseconds longestPause{60000}; ///< between two attempts
    std::chrono::milliseconds lasting{30000};      ///< of a link that lasts: the pauses begin anew
};

} // namespace host::device::connection

#endif
