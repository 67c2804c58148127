// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/CarmenLog.h"

#include "robot/recording/LineReader.h"
#include "robot/simulation/Laser.h"

#include <algorithm>

namespace robot::recording {

using simulation::degree;
using simulation::LaserScan;
using simulation::pi;

namespace {

constexpr size_t poseWords = 6;    // the laser's and the robot's
constexpr size_t trailerWords = 3; // ipc_timestamp ipc_hostname logger_timestamp

// FLASER does not say how its rays lie. It is of the time of the SICK LMS, whose settings are
// known by the number of readings; of an even number the field's last reading is missing.
void setGuessedAngles(LaserScan& scan, size_t count)
{
    const double field = count == 400 || count == 401 ? 100.0 * degree : pi;
    const bool isLastMissing = count == 180 || count == 360 || count == 400;
    const size_t steps = std::max<size_t>(isLastMissing ? count : count - 1, 1);
    scan.angle_min = static_cast<float>(-field / 2.0);
    scan.angle_increment = static_cast<float>(field / static_cast<double>(steps));
    scan.range_max = 80.0F;
}

} // namespace

bool CarmenLog::isLine(std::string_view firstToken)
{
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    return isCapital(firstToken.front()) &&
           std::all_of(firstToken.begin(), firstToken.end(), [isCapital](char c) {
               return isCapital(c) || (c >= '0' && c <= '9') || c == '_';
           });
}

std::optional<LaserScan> CarmenLog::scan(const Tokens& tokens, QString* reason)
{
    const bool isOldMessage = tokens.front() == "FLASER";
    if (!isOldMessage && tokens.front() != "ROBOTLASER1")
        return std::nullopt;

    LaserScan scan;
    LineReader line(tokens, reason);
    line.skip(1);
    if (!isOldMessage) {
        line.skip(1); // laser_type
        scan.angle_min = static_cast<float>(line.number(tr("start_angle"), -2.0 * pi, 2.0 * pi));
        line.skip(1); // field_of_view
        scan.angle_increment = static_cast<float>(line.number(tr("angular_resolution"), 1e-6, pi));
        scan.range_max = static_cast<float>(line.number(tr("maximum_range"), 0.0, 10000.0));
        line.skip(2); // accuracy, remission_mode
    }
    const size_t count = line.count(tr("num_readings"));
    scan.ranges = line.ranges(count, 1.0);
    if (isOldMessage)
        setGuessedAngles(scan, count);
    else
        line.skip(line.count(tr("num_remissions")));

    const size_t rest = line.left();
    if (rest < poseWords + trailerWords || (isOldMessage && rest > poseWords + trailerWords)) {
        line.fail(
            tr("%1 words follow the readings, not the poses, time stamps and host name").arg(rest));
    }
    if (count == 0)
        line.fail(tr("it has no readings"));
    if (!line.isBad())
        line.skip(rest - trailerWords);
    scan.header.stamp = line.time(tr("ipc_timestamp"), std::chrono::seconds(1));
    if (line.isBad())
        return std::nullopt;
    scan.header.frame_id = simulation::Laser::frameId;
    scan.angle_max = scan.angle_min + scan.angle_increment * static_cast<float>(count - 1);
    return scan;
}

} // namespace robot::recording
