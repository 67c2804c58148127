// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/LaserRays.h"

#include <algorithm>
#include <cmath>

namespace host::workbench::robotview {

namespace {

constexpr float longestRange = 10000; // metres: no laser on a robot sees that far

} // namespace

std::optional<LaserRays> LaserRays::of(const olm::core::LaserScanMessage& scan, QString* fault)
{
    if (!std::isfinite(scan.minimumAngle) || !std::isfinite(scan.angleIncrement)) {
        *fault = tr("its angles are not numbers");
        return std::nullopt;
    }
    LaserRays rays;
    rays.frame = QString::fromStdString(scan.frameId);
    rays.stamp = scan.timeStamp;
    const int count = static_cast<int>(scan.ranges.size());
    rays.hits.reserve(count);
    rays.swept.reserve(count + 1);
    const QPointF laser(0, 0);
    rays.swept.append(laser);
    for (int i = 0; i < count; ++i) {
        const float range = scan.ranges[i];
        if (!(range >= scan.minimumRange && range <= scan.maximumRange && range > 0 &&
              range <= longestRange)) {
            if (rays.swept.last() != laser)
                rays.swept.append(laser);
            continue;
        }
        const double angle =
            double(scan.minimumAngle) + i * static_cast<double>(scan.angleIncrement);
        const QPointF hit(range * std::cos(angle), range * std::sin(angle));
        rays.hits.append(hit);
        rays.swept.append(hit);
        rays.reach = std::max(rays.reach, static_cast<double>(range));
    }
    return rays;
}

} // namespace host::workbench::robotview
