// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_GRIDMAP_H
#define HOST_WORKBENCH_ROBOTVIEW_GRIDMAP_H

#include "host/workbench/robotview/Transform.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QImage>
#include <QString>

#include <optional>

namespace host::workbench::robotview {

/// A map out of the robot's nav_msgs/OccupancyGrid message.
struct GridMap
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::GridMap)

public:
    static constexpr int unknown = 101;

    QString frame;
    Transform origin;      ///< of the corner of the first cell, in the frame
    double resolution = 1; ///< a cell's edge, metres
    /// A byte a cell: 0 free to 100 occupied, or unknown. Without colours; the first row is the
    /// lowest.
    QImage cells;

    /// A message of the wrong shape gives nothing and, in @p fault, what is wrong.
    static std::optional<GridMap> read(const QCborMap& message, QString* fault);
};

} // namespace host::workbench::robotview

#endif
