// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/LaserRays.h"

#include <algorithm>
#include <cmath>

namespace host::workbench::robotview {

namespace {

constexpr float longestRange = 10000; // metres: no laser on a robot sees that far

/// From @p first to before @p end; -1 where none has an answer.
int shortest(const olm::core::LaserScanMessage& scan, int first, int end)
{
    int found = -1;
    for (int ray = first; ray < end; ++ray) {
        const float range = scan.ranges[ray];
        if (range >= scan.minimumRange && range <= scan.maximumRange && range > 0 &&
            range <= longestRange && (found < 0 || range < scan.ranges[found]))
            found = ray;
    }
    return found;
}

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
    const int step = std::max(1, (count + mostRays - 1) / mostRays);
    rays.hits.reserve(count / step + 1);
    rays.swept.reserve(count / step + 2);
    const QPointF laser(0, 0);
    rays.swept.append(laser);
    for (int first = 0; first < count; first += step) {
        const int ray = shortest(scan, first, std::min(first + step, count));
        if (ray < 0) {
            if (rays.swept.last() != laser)
                rays.swept.append(laser);
            continue;
        }
        const float range = scan.ranges[ray];
        const double angle =
            double(scan.minimumAngle) + ray * static_cast<double>(scan.angleIncrement);
        const QPointF hit(range * std::cos(angle), range * std::sin(angle));
        rays.hits.append(hit);
        rays.swept.append(hit);
        rays.reach = std::max(rays.reach, static_cast<double>(range));
    }
    return rays;
}

} // namespace host::workbench::robotview
