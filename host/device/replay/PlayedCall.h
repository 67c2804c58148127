// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_PLAYEDCALL_H
#define HOST_DEVICE_REPLAY_PLAYEDCALL_H

#include "host/device/recording/CallText.h"

#include <QLatin1String>

#include <chrono>
#include <vector>

namespace host::device::replay {

/// The one that builds a widget.
inline const QLatin1String loadFunction("loadDeviceWidget");

/// A call to the plugin as it was recorded, or one that the plugin made by itself.
struct PlayedCall
{
    std::chrono::nanoseconds time{0};             ///< since the recording began
    recording::RecordedCall call;                 ///< its arguments are there, and how it ended
    std::vector<recording::RecordedCall> answers; ///< what the plugin asked meanwhile, in order
};

} // namespace host::device::replay

#endif
