// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_ROBOT_SIMULATION_WALLS_H
#define TESTS_ROBOT_SIMULATION_WALLS_H

#include "robot/simulation/FloorPlan.h"

#include <algorithm>
#include <cmath>

/// The distance from a point of the map to the nearest wall, worked out without the world's
/// physics; negative outside the building.
inline double distanceToWalls(const robot::simulation::Pose2D& pose)
{
    using robot::simulation::FloorPlan;
    double nearest =
        std::min({pose.x, pose.y, FloorPlan::width - pose.x, FloorPlan::height - pose.y});
    for (const FloorPlan::Box& box : FloorPlan::walls()) {
        const double dx = std::max({box.left - pose.x, 0.0, pose.x - box.right});
        const double dy = std::max({box.bottom - pose.y, 0.0, pose.y - box.top});
        nearest = std::min(nearest, std::hypot(dx, dy));
    }
    return nearest;
}

#endif
