// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_TIMESTAMP_H
#define HOST_DEVICE_READERS_TIMESTAMP_H

#include "rosbridge/protocol/Fields.h"

#include <cstdint>

namespace host::device::readers {

/// The fields of a header's stamp, of ROS 1 or of ROS 2, in milliseconds modulo 2^32. What is
/// wrong with them is the fields' error.
std::uint32_t milliseconds(rosbridge::protocol::Fields stamp);

} // namespace host::device::readers

#endif
