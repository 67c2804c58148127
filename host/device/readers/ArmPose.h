// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_ARMPOSE_H
#define HOST_DEVICE_READERS_ARMPOSE_H

#include "host/device/readers/JointTable.h"

#include <array>
#include <optional>

namespace host::device::readers {

/// Where the arm's axes are, which may be told in parts.
class ArmPose
{
public:
    static constexpr int axisCount = JointTable::axisCount;

    using Axes = std::array<float, axisCount>;

    void take(const JointTable::Axes& told);

    /// Degrees or millimetres; nothing until every axis was told. An axis that has no joint in
    /// @p table is at 0, as long as any other has one.
    std::optional<Axes> axes(const JointTable& table) const;

    void forget();

private:
    JointTable::Axes m_axes;
};

} // namespace host::device::readers

#endif
