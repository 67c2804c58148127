// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/RobotLog.h"

#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "rosbridge/protocol/Fields.h"
#include "rosbridge/protocol/Topics.h"

namespace host::device::connection {

namespace {

/// As ROS 1 and ROS 2 number them. What is unknown may be worth reading.
events::Level levelOf(const QCborMap& line)
{
    QString fault; // which is no reason to withhold the line
    switch (rosbridge::protocol::Fields(line, &fault).integer("level", 0, 255)) {
    case 1:
    case 10:
        return events::Level::Debug;
    case 2:
    case 20:
        return events::Level::Info;
    case 8:
    case 40:
        return events::Level::Error;
    case 16:
    case 50:
        return events::Level::Fatal;
    default:
        return events::Level::Warning;
    }
}

} // namespace

RobotLog::RobotLog(Listener& listener)
{
    // ROS 1 and ROS 2 have different types for it: the server knows its own.
    listener.listen({rosbridge::protocol::topic::log.name, QLatin1String()}, baseLogLine,
                    [this](const QCborMap& line) { return read(line); });
}

QString RobotLog::read(const QCborMap& line)
{
    QString fault;
    rosbridge::protocol::Fields fields(line, &fault);
    const QString text = fields.text("msg");
    QString name = fields.text("name");
    if (!fields.isGood())
        return fault;
    if (name.startsWith(QLatin1Char('/')))
        name.remove(0, 1);
    const events::Level level = levelOf(line);
    Q_EMIT logged({level, name, text});
    if (name == QLatin1String("base"))
        Q_EMIT message(baseLogLine, text);
    else if (name == QLatin1String("manipulator"))
        Q_EMIT message(manipulatorLogLine, text);
    else if (name == QLatin1String("laser"))
        Q_EMIT message(laserLogLine, text);
    else if (m_isAllShown || level >= events::Level::Warning)
        Q_EMIT message(baseLogLine, QStringLiteral("%1: %2").arg(name, text));
    return fault;
}

} // namespace host::device::connection
