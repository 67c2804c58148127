// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/Hindrance.h"

#include "host/device/connection/Commands.h"
#include "host/device/connection/Connection.h"

namespace host::workbench::armview {

using device::connection::Commands;
using device::connection::Connection;
using robotview::RobotState;

namespace {

constexpr int axesPerLine = RobotState::axisCount / Commands::lineCount;

/// False where it is not known either.
bool isOff(const RobotState& robot, int line)
{
    return !robot.isSet(static_cast<RobotState::Topic>(RobotState::FirstLine + line))
                .value_or(true);
}

/// -1 if all are on, as far as is known.
int firstLineOff(const RobotState& robot)
{
    for (int line = 0; line < Commands::lineCount; ++line) {
        if (isOff(robot, line))
            return line;
    }
    return -1;
}

bool isAnyLineOn(const RobotState& robot)
{
    for (int line = 0; line < Commands::lineCount; ++line) {
        if (!isOff(robot, line))
            return true;
    }
    return false;
}

} // namespace

std::optional<Hindrance> Hindrance::find(const Link& link, const RobotState& robot,
                                         RobotState::TimePoint now)
{
    if (link.connectionState < Connection::connected)
        return Hindrance{tr("The device is not connected.")};
    if (link.connectionState == Connection::passive)
        return Hindrance{tr("Another client is in control of the robot.")};
    if (!link.isOffered)
        return Hindrance{tr("The robot does not listen to %1. If its arm has another name for "
                            "commands, enter it in Robot > Names….")
                             .arg(link.command)};
    if (robot.isSet(RobotState::Stopped).value_or(false))
        return Hindrance{tr("The robot is stopped. It moves again after the stop is released."),
                         Switch::Stop};
    if (!robot.isSet(RobotState::Torque).value_or(true))
        return Hindrance{tr("The arm has no torque."), Switch::Torque};
    const QString old = robot.overdue(RobotState::JointStates, now);
    if (!old.isEmpty())
        return Hindrance{tr("Where the arm is was last told %1 ago.").arg(old)};
    bool isAnywhere = false;
    for (int axis = 0; axis < RobotState::axisCount; ++axis)
        isAnywhere = isAnywhere || robot.axis(axis).present;
    if (!isAnywhere)
        return Hindrance{tr("The robot has not told where its arm is.")};
    const int line = firstLineOff(robot);
    if (line < 0)
        return std::nullopt;
    const auto remedy = static_cast<Switch>(static_cast<int>(Switch::FirstLine) + line);
    return Hindrance{tr("Supply line %1 is off: axes %2 to %3 do not move.")
                         .arg(line + 1)
                         .arg(line * axesPerLine + 1)
                         .arg((line + 1) * axesPerLine),
                     remedy, !isAnyLineOn(robot)};
}

bool Hindrance::isUnpowered(const RobotState& robot, int axis)
{
    return isOff(robot, axis / axesPerLine);
}

} // namespace host::workbench::armview
