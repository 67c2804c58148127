// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/CameraInfo.h"

#include "rosbridge/protocol/Fields.h"

#include <cstdint>
#include <limits>

namespace host::device::readers {

std::optional<CameraInfo> CameraInfo::read(const QCborMap& message, QString* fault)
{
    constexpr qint64 maximum = std::numeric_limits<std::uint32_t>::max();
    rosbridge::protocol::Fields fields(message, fault);
    const qint64 width = fields.integer("width", 0, maximum);
    const qint64 height = fields.integer("height", 0, maximum);
    if (!fields.isGood())
        return std::nullopt;
    return CameraInfo{static_cast<unsigned int>(width), static_cast<unsigned int>(height)};
}

} // namespace host::device::readers
