// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_TESTS_TELL_H
#define HOST_WORKBENCH_ROBOTVIEW_TESTS_TELL_H

#include "host/device/readers/ScanReader.h"
#include "host/workbench/robotview/RobotState.h"

/// Gives @p state a message of @p topic as the device and the feed do: scans are read before.
inline void tell(host::workbench::robotview::RobotState& state,
                 host::workbench::robotview::RobotState::Topic topic, const QCborMap& message,
                 host::workbench::robotview::RobotState::TimePoint now)
{
    using host::workbench::robotview::RobotState;
    if (topic != RobotState::Scan)
        return state.read(topic, message, now);
    QString fault;
    if (const auto scan = host::device::readers::ScanReader().read(message, &fault))
        state.readScan(*scan, now);
    else
        state.refuse(topic, fault);
}

#endif
