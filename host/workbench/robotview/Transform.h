// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_TRANSFORM_H
#define HOST_WORKBENCH_ROBOTVIEW_TRANSFORM_H

#include "rosbridge/protocol/Fields.h"

#include <QCoreApplication>
#include <QTransform>

#include <array>

namespace host::workbench::robotview {

/// Where one frame is in another: a turn and a shift in space, in metres. In space, not on the
/// floor, since a laser may be mounted upside down.
class Transform
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::Transform)

public:
    /// Both frames are the same.
    Transform() = default;

    /// Reads a geometry_msgs/Pose or Transform, which name their two fields differently. Numbers
    /// that are no place or no turn are the fields' error.
    static Transform read(rosbridge::protocol::Fields fields, const char* shift, const char* turn);

    /// @p inner, given in the frame whose place this is, in the frame that this is given in.
    Transform operator*(const Transform& inner) const;
    Transform inverse() const;

    /// How the frame's own floor, its x and y, looks from above.
    QTransform onFloor() const;

private:
    std::array<std::array<double, 3>, 3> m_turn{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    std::array<double, 3> m_shift{};
};

} // namespace host::workbench::robotview

#endif
