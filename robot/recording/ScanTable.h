// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_SCANTABLE_H
#define ROBOT_RECORDING_SCANTABLE_H

#include "robot/recording/Tokens.h"
#include "robot/simulation/LaserScan.h"

#include <QCoreApplication>

namespace robot::recording {

/// A line of a plain table of numbers, one scan of our laser a line: word 0 is the time in
/// microseconds, words 24 to 706 are the 683 ranges in millimetres, 0 where nothing came back.
/// What the other words say is not read.
class ScanTable
{
    Q_DECLARE_TR_FUNCTIONS(robot::recording::ScanTable)

public:
    /// Whether a line can begin so: any number.
    static bool isLine(std::string_view firstToken);

    /// The scan of a line; nothing, with @p reason set, for a bad line.
    static std::optional<simulation::LaserScan> scan(const Tokens& tokens, QString* reason);
};

} // namespace robot::recording

#endif
