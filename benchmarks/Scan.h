// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_SCAN_H
#define QUANDREL_SCAN_H

#include "olm/core/LaserScanMessage.h"

#include <random>
#include <vector>

/// A sweep of 683 ranges over 240 degrees, as a small laser range finder sends it.
inline olm::core::LaserScanMessage exampleScan()
{
    olm::core::LaserScanMessage scan;
    scan.sequenceNumber = 123456;
    scan.timeStamp = 1234567890;
    scan.frameId = "laser";
    scan.minimumAngle = -2.0943952F;
    scan.maximumAngle = 2.0943952F;
    scan.angleIncrement = 0.0061418F;
    scan.timeIncrement = 0.00009766F;
    scan.scanTime = 0.1F;
    scan.minimumRange = 0.02F;
    scan.maximumRange = 5.6F;
    scan.ranges.resize(683);
    for (int i = 0; i < 683; ++i)
        scan.ranges[i] = 0.5F + static_cast<float>(i) * 0.005F;
    return scan;
}

/// As many ranges with the noise of a real sensor, which leaves no digit of them at 0.
inline std::vector<float> noisyRanges()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> range(0.02F, 5.6F);
    std::vector<float> ranges(683);
    for (float& one : ranges)
        one = range(random);
    return ranges;
}

#endif
