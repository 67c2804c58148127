// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/ArmPose.h"

namespace host::device::readers {

void ArmPose::take(const JointTable::Axes& told)
{
    for (std::size_t axis = 0; axis < told.size(); ++axis) {
        if (told.at(axis))
            m_axes.at(axis) = told.at(axis);
    }
}

std::optional<ArmPose::Axes> ArmPose::axes(const JointTable& table) const
{
    Axes axes{};
    bool hasJoint = false;
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        if (table.joint(static_cast<int>(axis)).name.isEmpty())
            continue;
        if (!m_axes.at(axis))
            return std::nullopt;
        hasJoint = true;
        axes.at(axis) = *m_axes.at(axis);
    }
    return hasJoint ? std::make_optional(axes) : std::nullopt;
}

void ArmPose::forget()
{
    m_axes.fill(std::nullopt);
}

} // namespace host::device::readers
