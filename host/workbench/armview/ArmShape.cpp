// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/ArmShape.h"

#include "rosbridge/protocol/Angle.h"

#include <algorithm>
#include <cmath>

namespace host::workbench::armview {

namespace {

constexpr double linkMillimetres = 300; // that make a link twice as long
constexpr double upwards = 90;          // degrees
constexpr double shortestLink = 0.1;
constexpr double longestLink = 5;

} // namespace

QPolygonF armShape(const ArmPlaces& places, const device::readers::JointTable& joints)
{
    QPolygonF shape;
    shape << QPointF(0, 0);
    double direction = upwards;
    for (int axis = 0; axis < axisCount; ++axis) {
        const double place = double(places.at(static_cast<std::size_t>(axis)).value_or(0));
        double length = 1;
        if (joints.joint(axis).unit == device::readers::JointTable::Unit::Metres)
            length = std::clamp(1 + place / linkMillimetres, shortestLink, longestLink);
        else
            direction += place;
        const double angle = rosbridge::protocol::toRadians(direction);
        shape.append(shape.last() + QPointF(std::cos(angle), std::sin(angle)) * length);
    }
    return shape;
}

} // namespace host::workbench::armview
