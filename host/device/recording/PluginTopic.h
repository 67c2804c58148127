// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_PLUGINTOPIC_H
#define HOST_DEVICE_RECORDING_PLUGINTOPIC_H

#include "rosbridge/protocol/Topics.h"

namespace host::device::recording {

using rosbridge::protocol::operator""_latin1;

/// The topic of a recording that has the conversation between host and plugin.
constexpr rosbridge::protocol::Topic pluginTopic{"/plugin/calls"_latin1, "std_msgs/String"_latin1};

} // namespace host::device::recording

#endif
