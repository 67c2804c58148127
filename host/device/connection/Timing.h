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
    std::chrono::milliseconds frame{100};   ///< one frame of the connecting animation
    std::chrono::milliseconds answer{5000}; ///< for each answer of the robot's services
    rosbridge::client::Client::Timeouts link;
    std::chrono::milliseconds firstQuestion{5000};  ///< before it is asked again what is missing
    std::chrono::milliseconds lastQuestion{320000}; ///< that pause at its longest
    std::chrono::milliseconds silence{5000};        ///< of one topic while others come
    std::chrono::milliseconds control{1000};        ///< before control is asked for again
    std::chrono::milliseconds firstPause{1000};     ///< before a lost link is joined again
    std::chrono::milliseconds longestPause{60000};  ///< between two attempts
    std::chrono::milliseconds lasting{30000};       ///< of a link that lasts: the pauses begin anew
};

} // namespace host::device::connection

#endif
