// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_SCANREADER_H
#define HOST_DEVICE_READERS_SCANREADER_H

#include "olm/core/LaserScanMessage.h"

#include <QCborMap>
#include <QString>

#include <optional>

namespace host::device::readers {

/// Makes the plugin's scans of a robot's sensor_msgs/LaserScan messages, with the header of ROS 1
/// or of ROS 2. Where the robot does not number its scans, the reader does.
class ScanReader
{
public:
    /// The scan, its time stamp in milliseconds modulo 2^32. A message of the wrong shape gives
    /// nothing and, in @p fault, which was empty, what is wrong with which field.
    std::optional<olm::core::LaserScanMessage> read(const QCborMap& message, QString* fault);

private:
    std::uint32_t m_count = 0;
};

} // namespace host::device::readers

#endif
