// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_LASERSCAN_H
#define ROBOT_SIMULATION_LASERSCAN_H

#include "robot/simulation/Header.h"

#include <vector>

namespace robot::simulation {

/// sensor_msgs/LaserScan: radians, seconds and metres. Angles run to the left.
struct LaserScan
{
    Header header; ///< stamp: when the first ray was measured
    float angle_min = 0.0F;
    float angle_max = 0.0F;
    float angle_increment = 0.0F;
    float time_increment = 0.0F;
    float scan_time = 0.0F;
    float range_min = 0.0F;
    float range_max = 0.0F;
    std::vector<float> ranges; ///< 0 where nothing came back
    std::vector<float> intensities;
};

} // namespace robot::simulation

#endif
