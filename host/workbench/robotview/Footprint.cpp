// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/Footprint.h"

#include "rosbridge/protocol/Fields.h"

#include <QCborArray>

#include <cmath>

namespace host::workbench::robotview {

namespace {

constexpr int fewestPoints = 3;
constexpr double largestPlace = 1000; // metres: no robot is larger

bool isPlace(double metres)
{
    return std::abs(metres) <= largestPlace; // NaN is not
}

} // namespace

std::optional<Footprint> Footprint::read(const QCborMap& message, QString* fault)
{
    rosbridge::protocol::Fields fields(message, fault);
    Footprint footprint;
    footprint.frame = fields.object("header").text("frame_id");
    rosbridge::protocol::Fields polygon = fields.object("polygon");
    const QCborArray points =
        message.value(QLatin1String("polygon")).toMap().value(QLatin1String("points")).toArray();
    const int count = static_cast<int>(points.size());
    if (count < fewestPoints || count > mostPoints)
        polygon.fail(
            "points",
            tr("has %1 points, not %2 to %3").arg(count).arg(fewestPoints).arg(mostPoints));
    for (const QCborValue element : points) {
        if (!fields.isGood())
            return std::nullopt;
        QString problem;
        rosbridge::protocol::Fields point(element.toMap(), &problem);
        const QPointF corner(point.number("x"), point.number("y"));
        if (!problem.isEmpty() || !isPlace(corner.x()) || !isPlace(corner.y()))
            polygon.fail(
                "points",
                tr("has a point %1 that is no place in metres").arg(footprint.outline.size() + 1));
        footprint.outline.append(corner);
    }
    return fields.isGood() ? std::make_optional(footprint) : std::nullopt;
}

} // namespace host::workbench::robotview
