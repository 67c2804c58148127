// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_MESSAGEROLE_H
#define HOST_DEVICE_CONNECTION_MESSAGEROLE_H

#include "plugin/plugin/DataRole.h"

namespace host::device::connection {

// What a message from the device to its widgets is about. Lines of a log are QStrings.
constexpr plugin::plugin::DataRole baseLogLine{1000};
constexpr plugin::plugin::DataRole manipulatorLogLine{1001};
constexpr plugin::plugin::DataRole laserLogLine{1002};
constexpr plugin::plugin::DataRole emphasisedBaseLogLine{1004};
constexpr plugin::plugin::DataRole connectionStateMessage{1005}; ///< an int

} // namespace host::device::connection

#endif
