// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Geometry.h"

#include <cmath>

namespace robot::simulation {

double normalizedAngle(double angle)
{
    return std::remainder(angle, 2.0 * pi);
}

Pose2D fromFrame(const Pose2D& frame, const Pose2D& pose)
{
    const double c = std::cos(frame.theta);
    const double s = std::sin(frame.theta);
    return {frame.x + c * pose.x - s * pose.y, frame.y + s * pose.x + c * pose.y,
            normalizedAngle(frame.theta + pose.theta)};
}

Pose2D toFrame(const Pose2D& frame, const Pose2D& pose)
{
    const double c = std::cos(frame.theta);
    const double s = std::sin(frame.theta);
    const double x = pose.x - frame.x;
    const double y = pose.y - frame.y;
    return {c * x + s * y, c * y - s * x, normalizedAngle(pose.theta - frame.theta)};
}

} // namespace robot::simulation
