// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/FloorPlan.h"

#include <algorithm>
#include <cmath>

namespace robot::simulation {

const std::vector<FloorPlan::Box>& FloorPlan::walls()
{
    static const std::vector<Box> boxes{
        // the building
        {0.0, 0.0, 0.2, 8.0},
        {11.8, 0.0, 12.0, 8.0},
        {0.2, 0.0, 11.8, 0.2},
        {0.2, 7.8, 11.8, 8.0},
        // the corridor's upper wall, with three doors
        {0.2, 5.0, 1.6, 5.1},
        {2.6, 5.0, 5.4, 5.1},
        {6.4, 5.0, 9.6, 5.1},
        {10.6, 5.0, 11.8, 5.1},
        // the corridor's lower wall, with two doors, open to the lobby at its end
        {0.2, 3.3, 2.0, 3.4},
        {3.0, 3.3, 6.2, 3.4},
        {7.2, 3.3, 8.7, 3.4},
        // between the upper rooms
        {4.0, 5.1, 4.1, 7.8},
        {8.0, 5.1, 8.1, 6.2},
        {8.0, 7.2, 8.1, 7.8},
        // between the lower rooms
        {4.9, 0.2, 5.0, 1.2},
        {4.9, 2.2, 5.0, 3.3},
        {8.6, 0.2, 8.7, 3.3},
        // a cupboard, two tables, a desk, a shelf, and the lobby's pillar
        {0.2, 7.3, 1.6, 7.8, 2.0},
        {5.4, 6.2, 6.4, 6.8, 0.75},
        {1.4, 1.2, 2.4, 1.9, 0.75},
        {10.8, 6.8, 11.8, 7.8, 0.8},
        {6.4, 0.2, 8.0, 0.6, 1.4},
        {10.1, 2.0, 10.4, 2.3},
    };
    return boxes;
}

const std::vector<Pose2D>& FloorPlan::people()
{
    static const std::vector<Pose2D> poses{
        {6.0, 4.2, 0.0}, {3.6, 2.4, 0.0}, {9.4, 1.0, 0.0}, {10.0, 6.0, 0.0}};
    return poses;
}

OccupancyGrid FloorPlan::occupancyGrid(double resolution)
{
    OccupancyGrid grid;
    grid.header.frame_id = frameId;
    grid.resolution = static_cast<float>(resolution);
    grid.width = static_cast<quint32>(std::lround(width / resolution));
    grid.height = static_cast<quint32>(std::lround(height / resolution));
    grid.data.reserve(size_t{grid.width} * grid.height);
    for (quint32 row = 0; row < grid.height; ++row) {
        for (quint32 column = 0; column < grid.width; ++column) {
            const double x = (column + 0.5) * resolution;
            const double y = (row + 0.5) * resolution;
            const bool isWall = std::any_of(walls().begin(), walls().end(), [x, y](const Box& box) {
                return x > box.left && x < box.right && y > box.bottom && y < box.top;
            });
            grid.data.push_back(isWall ? 100 : 0);
        }
    }
    return grid;
}

} // namespace robot::simulation
