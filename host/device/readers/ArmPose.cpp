// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/ArmPose.h"

#include "rosbridge/protocol/Angle.h"
#include "rosbridge/protocol/Codec.h"
#include "rosbridge/protocol/Fields.h"

namespace host::device::readers {

namespace {

/// -1 where a joint is none of the arm's.
int axisOf(const QString& joint)
{
    for (int axis = 0; axis < ArmPose::axisCount; ++axis) {
        if (joint == QStringLiteral("axis%1").arg(axis))
            return axis;
    }
    return -1;
}

} // namespace

QString ArmPose::read(const QCborMap& jointState)
{
    QString fault;
    rosbridge::protocol::Fields fields(jointState, &fault);
    const QStringList names = fields.texts("name");
    const QVector<float> positions = fields.floats("position");
    if (positions.size() != names.size()) {
        fields.fail("position",
                    tr("has %1 numbers for %2 names").arg(positions.size()).arg(names.size()));
    }
    if (!fields.isGood())
        return fault;
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
        const int axis = axisOf(names.at(i));
        if (axis >= 0)
            m_axes.at(static_cast<std::size_t>(axis)) =
                rosbridge::protocol::toFloat(rosbridge::protocol::toDegrees(positions.at(i)));
    }
    return {};
}

std::optional<ArmPose::Axes> ArmPose::axes() const
{
    Axes axes{};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        if (!m_axes.at(axis))
            return std::nullopt;
        axes.at(axis) = *m_axes.at(axis);
    }
    return axes;
}

void ArmPose::forget()
{
    m_axes.fill(std::nullopt);
}

} // namespace host::device::readers
