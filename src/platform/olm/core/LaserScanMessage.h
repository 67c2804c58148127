// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_LASERSCANMESSAGE_H
#define OLM_CORE_LASERSCANMESSAGE_H

#include "olm/core/Vector.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace olm {
namespace core {

/// One sweep of a laser range finder: header, geometry and measurements. Copies share the
/// measurements. The numbers of ranges and of intensities are independent of each other and of
/// the angles.
class LaserScanMessage
{
public:
    std::uint32_t sequenceNumber = 0;
    std::uint32_t timeStamp = 0; ///< in a unit and from a start that the device sets
    std::string frameId;         ///< the coordinate frame of the sensor
    float minimumAngle = 0;      ///< of the first measurement, in radians
    float maximumAngle = 0;      ///< of the last measurement, in radians
    float angleIncrement = 0;    ///< between two measurements, in radians
    float timeIncrement = 0;     ///< between two measurements, in seconds
    float scanTime = 0;          ///< of the whole sweep, in seconds
    float minimumRange = 0;      ///< the smallest valid range, in metres
    float maximumRange = 0;      ///< the largest valid range, in metres
    Vector<float> ranges;        ///< in sweep order, in metres
    Vector<float> intensities;   ///< in sweep order

    LaserScanMessage() = default;
    LaserScanMessage(const LaserScanMessage&) = default;
    LaserScanMessage& operator=(const LaserScanMessage&) = default;

    virtual ~LaserScanMessage() {}

    /// The number of bytes that encode() writes.
    virtual unsigned int encodedDataSize() const
    {
        return static_cast<unsigned int>(41 + frameId.size()) +
               4 * (ranges.size() + intensities.size());
    }

    /// Writes the fields in order, without padding, in this machine's byte order, and returns
    /// encodedDataSize(), which @p buffer must have room for. The frame's length (one byte) and
    /// the two counts (two bytes each) stand before the data and are cut to their low bits; the
    /// data is always written in full.
    virtual unsigned int encode(char* buffer) const
    {
        const std::uint8_t frameIdSize = static_cast<std::uint8_t>(frameId.size());
        const float geometry[] = {minimumAngle, maximumAngle, angleIncrement, timeIncrement,
                                  scanTime,     minimumRange, maximumRange};
        const std::uint16_t counts[] = {static_cast<std::uint16_t>(ranges.size()),
                                        static_cast<std::uint16_t>(intensities.size())};
        buffer = put(buffer, &sequenceNumber, 1);
        buffer = put(buffer, &timeStamp, 1);
        buffer = put(buffer, &frameIdSize, 1);
        buffer = put(buffer, frameId.data(), frameId.size());
        buffer = put(buffer, geometry, 7);
        buffer = put(buffer, counts, 2);
        buffer = put(buffer, ranges.data(), ranges.size());
        put(buffer, intensities.data(), intensities.size());
        return encodedDataSize();
    }

    virtual bool operator==(const LaserScanMessage& other) const { return !(*this != other); }

    /// Numbers are compared exactly: a message that holds a NaN differs from its own copy.
    virtual bool operator!=(const LaserScanMessage& other) const
    {
        return sequenceNumber != other.sequenceNumber || timeStamp != other.timeStamp ||
               frameId != other.frameId || minimumAngle != other.minimumAngle ||
               maximumAngle != other.maximumAngle || angleIncrement != other.angleIncrement ||
               timeIncrement != other.timeIncrement || scanTime != other.scanTime ||
               minimumRange != other.minimumRange || maximumRange != other.maximumRange ||
               ranges != other.ranges || intensities != other.intensities;
    }

private:
    /// Copies the bytes of @p count values and returns the place after them.
    template <class T>
    static char* put(char* to, const T* values, std::size_t count)
    {
        if (count > 0) // an empty vector may have no storage to point to
            std::memcpy(to, values, count * sizeof(T));
        return to + count * sizeof(T);
    }
};

} // namespace core
} // namespace olm

#endif
