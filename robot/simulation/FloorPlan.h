// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_FLOORPLAN_H
#define ROBOT_SIMULATION_FLOORPLAN_H

#include "robot/simulation/OccupancyGrid.h"

#include <vector>

namespace robot::simulation {

/// The floor that the robot lives on: five rooms and a lobby along a corridor, with doors a metre
/// wide. Everything that stands still, furniture too, is a box; the lower left corner of the
/// building is the origin of the frame "map".
class FloorPlan
{
public:
    static constexpr const char* frameId = "map";
    static constexpr double width = 12.0; ///< metres, outer walls included
    static constexpr double height = 8.0;
    static constexpr double ceiling = 2.5; ///< metres above the floor
    static constexpr Pose2D robotStart{1.2, 4.2, 0.0};

    /// Metres; its edges are parallel to the axes. It stands on the floor.
    struct Box
    {
        double left = 0.0;
        double bottom = 0.0;
        double right = 0.0;
        double top = 0.0;
        double upTo = ceiling; ///< above the floor
    };

    /// Outer walls first. All edges lie on a grid of a tenth of a metre.
    static const std::vector<Box>& walls();

    /// Where people are when the simulation begins.
    static const std::vector<Pose2D>& people();

    /// The walls as a map: a cell is occupied if its centre is in a wall. @p resolution in
    /// metres, positive.
    static OccupancyGrid occupancyGrid(double resolution);
};

} // namespace robot::simulation

#endif
