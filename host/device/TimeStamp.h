#ifndef HOST_DEVICE_TIMESTAMP_H
#define HOST_DEVICE_TIMESTAMP_H

#include "robot/link/Fields.h"

#include <cstdint>

namespace host::device {

/// The fields of a header's stamp, of ROS 1 or of ROS 2, in milliseconds modulo 2^32. What is
/// wrong with them is the fields' error.
std::uint32_t milliseconds(robot::link::Fields stamp);

} // namespace host::device

#endif
