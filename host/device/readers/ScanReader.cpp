// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/ScanReader.h"

#include "host/device/readers/TimeStamp.h"
#include "rosbridge/protocol/Fields.h"

#include <limits>

namespace host::device::readers {

using olm::core::LaserScanMessage;
using rosbridge::protocol::Fields;

namespace {

constexpr qint64 maximumUnsigned = std::numeric_limits<std::uint32_t>::max();

olm::core::Vector<float> vector(const QVector<float>& values)
{
    olm::core::Vector<float> vector(static_cast<unsigned int>(values.size()));
    for (int i = 0; i < static_cast<int>(values.size()); ++i)
        vector[i] = values.at(i);
    return vector;
}

} // namespace

std::optional<LaserScanMessage> ScanReader::read(const QCborMap& message, QString* fault)
{
    Fields fields(message, fault);
    LaserScanMessage scan;

    Fields header = fields.object("header");
    scan.sequenceNumber =
        header.has("seq") ? static_cast<std::uint32_t>(header.integer("seq", 0, maximumUnsigned))
                          : m_count + 1;
    scan.timeStamp = milliseconds(header.object("stamp"));
    scan.frameId = header.text("frame_id").toStdString();

    scan.minimumAngle = fields.floatNumber("angle_min");
    scan.maximumAngle = fields.floatNumber("angle_max");
    scan.angleIncrement = fields.floatNumber("angle_increment");
    scan.timeIncrement = fields.floatNumber("time_increment");
    scan.scanTime = fields.floatNumber("scan_time");
    scan.minimumRange = fields.floatNumber("range_min");
    scan.maximumRange = fields.floatNumber("range_max");
    scan.ranges = vector(fields.floats("ranges"));
    if (fields.has("intensities"))
        scan.intensities = vector(fields.floats("intensities"));

    if (!fields.isGood())
        return std::nullopt;
    m_count = scan.sequenceNumber;
    return scan;
}

} // namespace host::device::readers
