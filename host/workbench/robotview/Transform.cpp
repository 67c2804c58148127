// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/Transform.h"

#include <cmath>

namespace host::workbench::robotview {

using rosbridge::protocol::Fields;

namespace {

constexpr double farthest = 1e7; // metres; also the largest numbers of maps of the whole earth
constexpr double tolerance = 0.01;

} // namespace

Transform Transform::read(Fields fields, const char* shift, const char* turn)
{
    Transform transform;
    Fields place = fields.object(shift);
    const std::array<const char*, 3> axes{"x", "y", "z"};
    for (std::size_t i = 0; i < axes.size(); ++i) {
        const double metres = place.number(axes.at(i));
        if (!(std::abs(metres) <= farthest))
            place.fail(axes.at(i), tr("is %1, which is not a position in metres").arg(metres));
        transform.m_shift.at(i) = metres;
    }

    Fields quaternion = fields.object(turn);
    double x = quaternion.number("x");
    double y = quaternion.number("y");
    double z = quaternion.number("z");
    double w = quaternion.number("w");
    const double square = x * x + y * y + z * z + w * w;
    if (!(std::abs(square - 1) <= tolerance)) {
        fields.fail(turn, tr("is not a rotation: the sum of its squares is %1, not 1").arg(square));
        return transform;
    }
    const double norm = std::sqrt(square);
    x /= norm;
    y /= norm;
    z /= norm;
    w /= norm;
    transform.m_turn = {{{1 - 2 * (y * y + z * z), 2 * (x * y - z * w), 2 * (x * z + y * w)},
                         {2 * (x * y + z * w), 1 - 2 * (x * x + z * z), 2 * (y * z - x * w)},
                         {2 * (x * z - y * w), 2 * (y * z + x * w), 1 - 2 * (x * x + y * y)}}};
    return transform;
}

Transform Transform::operator*(const Transform& inner) const
{
    Transform product;
    for (std::size_t row = 0; row < 3; ++row) {
        const auto& turn = m_turn.at(row);
        double shift = m_shift.at(row);
        for (std::size_t i = 0; i < 3; ++i) {
            shift += turn.at(i) * inner.m_shift.at(i);
            double sum = 0;
            for (std::size_t k = 0; k < 3; ++k)
                sum += turn.at(k) * inner.m_turn.at(k).at(i);
            product.m_turn.at(row).at(i) = sum;
        }
        product.m_shift.at(row) = shift;
    }
    return product;
}

Transform Transform::inverse() const
{
    Transform inverse;
    for (std::size_t row = 0; row < 3; ++row) {
        double shift = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            inverse.m_turn.at(row).at(i) = m_turn.at(i).at(row);
            shift -= m_turn.at(i).at(row) * m_shift.at(i);
        }
        inverse.m_shift.at(row) = shift;
    }
    return inverse;
}

QTransform Transform::onFloor() const
{
    return {m_turn[0][0], m_turn[1][0], m_turn[0][1], m_turn[1][1], m_shift[0], m_shift[1]};
}

} // namespace host::workbench::robotview
