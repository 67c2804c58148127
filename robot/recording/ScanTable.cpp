// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/ScanTable.h"

#include "robot/recording/LineReader.h"
#include "robot/simulation/Laser.h"

namespace robot::recording {

using simulation::Laser;
using simulation::LaserScan;

namespace {

constexpr size_t firstRange = 24;

} // namespace

bool ScanTable::isLine(std::string_view firstToken)
{
    return toNumber(firstToken).has_value();
}

std::optional<LaserScan> ScanTable::scan(const Tokens& tokens, QString* reason)
{
    LaserScan scan = Laser::emptyScan();
    LineReader line(tokens, reason);
    scan.header.stamp = line.time(tr("the time"), std::chrono::microseconds(1));
    line.skip(firstRange - 1);
    scan.ranges = line.ranges(Laser::rangeCount, 0.001);
    if (line.isBad())
        return std::nullopt;
    return scan;
}

} // namespace robot::recording
