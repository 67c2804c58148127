// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_CARMENLOG_H
#define ROBOT_RECORDING_CARMENLOG_H

#include "robot/recording/Tokens.h"
#include "robot/simulation/LaserScan.h"

#include <QCoreApplication>

namespace robot::recording {

/// A line of a CARMEN text log. Two messages hold the front laser's scans:
///
///     FLASER n [n ranges] x y theta odom_x odom_y odom_theta
///         ipc_timestamp ipc_hostname logger_timestamp
///     ROBOTLASER1 laser_type start_angle field_of_view angular_resolution maximum_range accuracy
///         remission_mode n [n ranges] m [m remissions] laser_pose(3) robot_pose(3) ...
///         ipc_timestamp ipc_hostname logger_timestamp
///
/// Metres, radians and seconds. The scan's stamp is ipc_timestamp, when it was measured.
class CarmenLog
{
    Q_DECLARE_TR_FUNCTIONS(robot::recording::CarmenLog)

public:
    /// Whether a line can begin so: a message's name, in capitals.
    static bool isLine(std::string_view firstToken);

    /// The scan of a line; nothing for other messages and, with @p reason set, for a bad line.
    static std::optional<simulation::LaserScan> scan(const Tokens& tokens, QString* reason);
};

} // namespace robot::recording

#endif
