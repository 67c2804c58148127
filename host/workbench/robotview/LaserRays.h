// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_LASERRAYS_H
#define HOST_WORKBENCH_ROBOTVIEW_LASERRAYS_H

#include "olm/core/LaserScanMessage.h"

#include <QCoreApplication>
#include <QPolygonF>
#include <QString>

#include <optional>

namespace host::workbench::robotview {

/// What a laser saw, in metres in its own frame. Rays without an answer within the laser's limits
/// are not among it. Of rays that lie closer together than pixels, the shortest stands for several.
struct LaserRays
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::LaserRays)

public:
    static constexpr int mostRays = 4096;

    QString frame;
    std::uint32_t stamp = 0; ///< the robot's clock, milliseconds modulo 2^32
    double reach = 0;        ///< of the farthest ray
    QPolygonF hits;
    QPolygonF swept; ///< what the rays passed over

    /// A scan that cannot be shown gives nothing and, in @p fault, what is wrong.
    static std::optional<LaserRays> of(const olm::core::LaserScanMessage& scan, QString* fault);
};

} // namespace host::workbench::robotview

#endif
