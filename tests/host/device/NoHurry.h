// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_NOHURRY_H
#define HOST_DEVICE_TESTS_NOHURRY_H

#include "host/device/connection/Timing.h"

/// Nothing runs into these deadlines.
inline host::device::connection::Timing noHurry()
{
    using namespace std::chrono_literals;
    host::device::connection::Timing timing;
    timing.frame = 5ms;
    timing.answer = 60s;
    timing.link = {60s, 2s, 60s};
    timing.firstQuestion = 60s;
    timing.silence = 60s;
    return timing;
}

#endif
