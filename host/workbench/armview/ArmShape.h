// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_ARMSHAPE_H
#define HOST_WORKBENCH_ARMVIEW_ARMSHAPE_H

#include "host/workbench/armview/Trajectory.h"

#include <QPolygonF>

#include <array>
#include <optional>

namespace host::workbench::armview {

/// Where each axis is or is to go, degrees or millimetres; 0 counts where that is not known.
using ArmPlaces = std::array<std::optional<float>, axisCount>;

/// The arm from the side, as far as its axes alone tell: a chain of links of the length 1, which
/// stands up straight with all axes at 0. Each axis turns the rest of the chain to the left, or
/// makes its link longer. Ten points, from the foot to the tip; y goes up.
QPolygonF armShape(const ArmPlaces& places, const device::readers::JointTable& joints);

} // namespace host::workbench::armview

#endif
