// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_POSITIONS_H
#define HOST_DEVICE_VARIABLES_POSITIONS_H

#include "host/device/readers/ArmPose.h"
#include "plugin/gui/DeviceHost.h"

#include <QString>

#include <array>
#include <vector>

namespace host::device::variables {

class Variables;

/// Where the arm can be sent, as the configuration holds it in "pos0", "pos0_name" and so on.
struct Position
{
    struct Axis
    {
        float target = 0; ///< degrees or millimetres
        float speed = 0;  ///< a second; 0 stops the axis where it is

        bool operator==(const Axis& other) const
        {
            return target == other.target && speed == other.speed;
        }
    };

    QString name;
    std::array<Axis, readers::ArmPose::axisCount> axes; ///< 0 where nothing is stored for an axis

    bool operator==(const Position& other) const
    {
        return name == other.name && axes == other.axes;
    }
};

/// Whether a variable of the configuration is part of the positions.
bool isOfPositions(const std::string& name);

/// As many as "num_pos" says, up to a thousand: the device has room for "num_pos_max", but any
/// number may be set by hand.
std::vector<Position> storedPositions(const Variables& variables);

/// Has @p host store @p position as number @p row, counted from 0. Its name becomes Latin-1.
void storePosition(plugin::gui::DeviceHost& host, int row, const Position& position);

/// Has @p host store @p positions in place of those there are, in one transaction called @p title.
void storePositions(plugin::gui::DeviceHost& host, const std::vector<Position>& positions,
                    const QString& title);

} // namespace host::device::variables

#endif
