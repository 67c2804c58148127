// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_CAMERAINFO_H
#define HOST_DEVICE_READERS_CAMERAINFO_H

#include <QCborMap>
#include <QString>

#include <optional>

namespace host::device::readers {

/// What a robot says with each picture, out of a sensor_msgs/CameraInfo message.
struct CameraInfo
{
    unsigned int width; ///< pixels
    unsigned int height;

    /// A message of the wrong shape gives nothing and, in @p fault, which was empty, what is wrong
    /// with which field.
    static std::optional<CameraInfo> read(const QCborMap& message, QString* fault);
};

} // namespace host::device::readers

#endif
