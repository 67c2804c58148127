// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_PLUGINTOPICS_H
#define HOST_DEVICE_RECORDING_PLUGINTOPICS_H

#include "rosbridge/protocol/Topics.h"

#include <chrono>

namespace host::device::recording {

using rosbridge::protocol::operator""_latin1;

// The topics of a recording that are about the plugin.

/// The conversation between host and plugin.
constexpr rosbridge::protocol::Topic callsTopic{"/plugin/calls"_latin1, "std_msgs/String"_latin1};
/// What the device was, from time to time: who wants to know it at some moment reads on from the
/// newest of these.
constexpr rosbridge::protocol::Topic stateTopic{"/plugin/state"_latin1, "std_msgs/String"_latin1};
/// The ends of calls that took too long, once more: a bag's index tells where they are.
constexpr rosbridge::protocol::Topic longCallsTopic{"/plugin/long_calls"_latin1,
                                                    "std_msgs/String"_latin1};

/// A state is recorded that often, where there are calls.
constexpr std::chrono::seconds stateInterval{2};

} // namespace host::device::recording

#endif
