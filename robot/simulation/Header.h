// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_HEADER_H
#define ROBOT_SIMULATION_HEADER_H

#include <QString>

#include <chrono>

namespace robot::simulation {

/// Time since the simulation began; for recordings, whatever their clock said.
using Time = std::chrono::nanoseconds;

/// std_msgs/Header.
struct Header
{
    quint32 seq = 0; ///< counts a topic's messages
    Time stamp{0};
    QString frame_id;
};

} // namespace robot::simulation

#endif
