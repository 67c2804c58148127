// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_ANGLE_H
#define ROSBRIDGE_PROTOCOL_ANGLE_H

#include <cmath>

/// ROS has angles in radians, the robot's arm and the device have degrees. The same for speeds.
namespace rosbridge::protocol {

constexpr double degreesPerRadian = 57.295779513082320877;

inline double toRadians(double degrees)
{
    return degrees / degreesPerRadian;
}

/// To a ten-thousandth of a degree, so that whole degrees survive the way there and back, even as
/// float32.
inline double toDegrees(double radians)
{
    constexpr double steps = 10000.0;
    return std::round(radians * degreesPerRadian * steps) / steps;
}

} // namespace rosbridge::protocol

#endif
