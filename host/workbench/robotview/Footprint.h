// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_FOOTPRINT_H
#define HOST_WORKBENCH_ROBOTVIEW_FOOTPRINT_H

#include <QCborMap>
#include <QCoreApplication>
#include <QPolygonF>
#include <QString>

#include <optional>

namespace host::workbench::robotview {

/// What a robot covers of the floor, out of its geometry_msgs/PolygonStamped message.
struct Footprint
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::Footprint)

public:
    static constexpr int mostPoints = 1000;

    QString frame;
    QPolygonF outline; ///< metres in the frame

    /// A message of the wrong shape gives nothing and, in @p fault, what is wrong.
    static std::optional<Footprint> read(const QCborMap& message, QString* fault);
};

} // namespace host::workbench::robotview

#endif
