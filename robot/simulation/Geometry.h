// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_GEOMETRY_H
#define ROBOT_SIMULATION_GEOMETRY_H

namespace robot::simulation {

constexpr double pi = 3.14159265358979323846;
constexpr double degree = pi / 180.0;

/// Where something on the floor is: metres and radians, x forward, y left, theta to the left.
struct Pose2D
{
    double x = 0.0;
    double y = 0.0;
    double theta = 0.0;
};

/// geometry_msgs/Twist of a robot that only drives along its nose and turns.
struct Twist
{
    double linear_x = 0.0;  ///< m/s
    double angular_z = 0.0; ///< rad/s, positive to the left
};

/// The same angle within -pi to pi.
double normalizedAngle(double angle);

/// @p pose, given in the frame whose own pose is @p frame, in the frame that @p frame is given in.
Pose2D fromFrame(const Pose2D& frame, const Pose2D& pose);

/// The way back: @p pose as seen from @p frame, both given in the same frame.
Pose2D toFrame(const Pose2D& frame, const Pose2D& pose);

} // namespace robot::simulation

#endif
