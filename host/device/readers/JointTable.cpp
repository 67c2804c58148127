// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/JointTable.h"

#include "rosbridge/protocol/Angle.h"
#include "rosbridge/protocol/Codec.h"

#include <algorithm>
#include <cmath>

namespace host::device::readers {

namespace {

constexpr double millimetresPerMetre = 1000;

} // namespace

float JointTable::Joint::place(double position) const
{
    double place = position;
    if (unit == Unit::Radians)
        place = rosbridge::protocol::toDegrees(position);
    else if (unit == Unit::Metres)
        place = position * millimetresPerMetre;
    return rosbridge::protocol::toFloat((isReversed ? -place : place) + offset);
}

double JointTable::Joint::position(double place) const
{
    const double position = isReversed ? offset - place : place - offset;
    if (unit == Unit::Radians)
        return rosbridge::protocol::toRadians(position);
    return unit == Unit::Metres ? position / millimetresPerMetre : position;
}

bool JointTable::Joint::operator==(const Joint& other) const
{
    return name == other.name && unit == other.unit && isReversed == other.isReversed &&
           offset == other.offset;
}

JointTable::JointTable()
{
    for (int axis = 0; axis < axisCount; ++axis)
        setJoint(axis, {ownName(axis), {}, {}, {}});
}

JointTable::JointTable(const QStringList& joints)
{
    for (int axis = 0; axis < axisCount; ++axis)
        setJoint(axis, {joints.value(axis), {}, {}, {}});
}

QString JointTable::ownName(int axis)
{
    return QStringLiteral("axis%1").arg(axis);
}

bool JointTable::contains(const QString& joint) const
{
    return std::any_of(m_joints.begin(), m_joints.end(),
                       [&joint](const Joint& each) { return each.name == joint; });
}

std::optional<JointTable::Axes> JointTable::axes(const JointPositions& joints, QString* fault) const
{
    Axes axes;
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        const Joint& joint = m_joints.at(axis);
        const auto at = joint.name.isEmpty() ? -1 : joints.names.indexOf(joint.name);
        if (at < 0)
            continue;
        const double position = double(joints.positions.at(at));
        if (!std::isfinite(position)) {
            *fault = tr("the joint \"%1\" has %2, which is not a position")
                         .arg(joint.name, QString::number(position));
            return std::nullopt;
        }
        axes.at(axis) = joint.place(position);
    }
    return axes;
}

} // namespace host::device::readers
