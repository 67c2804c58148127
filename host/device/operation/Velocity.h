// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_OPERATION_VELOCITY_H
#define HOST_DEVICE_OPERATION_VELOCITY_H

#include <QCborMap>

namespace host::device::operation {

/// How a robot on wheels moves.
struct Velocity
{
    double linear = 0;  ///< m/s, forward
    double angular = 0; ///< rad/s, to the left
};

/// As geometry_msgs/Twist.
QCborMap toMessage(const Velocity& velocity);

} // namespace host::device::operation

#endif
