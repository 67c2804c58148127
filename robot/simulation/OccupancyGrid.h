// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_OCCUPANCYGRID_H
#define ROBOT_SIMULATION_OCCUPANCYGRID_H

#include "robot/simulation/Geometry.h"
#include "robot/simulation/Header.h"

#include <vector>

namespace robot::simulation {

/// nav_msgs/OccupancyGrid, its info's fields among its own.
struct OccupancyGrid
{
    Header header;
    float resolution = 0.0F; ///< a cell's edge, metres
    quint32 width = 0;       ///< cells
    quint32 height = 0;      ///< cells
    Pose2D origin;           ///< of cell (0, 0)'s lower left corner
    std::vector<qint8> data; ///< row by row from the origin: 0 free, 100 occupied
};

} // namespace robot::simulation

#endif
