// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Log.h"

#include "robot/network/Clock.h"
#include "rosbridge/protocol/Topics.h"
#include "rosbridge/server/Endpoint.h"

#include <QCborArray>
#include <QCborMap>
#include <QRegularExpression>

namespace robot::network {

Log::Log(rosbridge::server::Endpoint& endpoint, const Clock& clock)
    : m_endpoint(endpoint),
      m_clock(clock)
{
}

namespace {

/// One line that is not too long.
QString asLine(const QString& text)
{
    static const QRegularExpression lineBreaks(
        QStringLiteral("[\\n\\r\\x{0b}\\f\\x{85}\\x{2028}\\x{2029}]+"));
    QString line = text;
    if (line.size() > Log::longestText)
        line = line.left(Log::longestText - 1) + QChar(0x2026); // "…"
    return line.replace(lineBreaks, QStringLiteral(" "));
}

} // namespace

void Log::write(Level level, const QString& name, const QString& text)
{
    const QCborMap header{{QStringLiteral("seq"), static_cast<qint64>(++m_lastSequence)},
                          {QStringLiteral("stamp"), Clock::stamp(m_clock.now())},
                          {QStringLiteral("frame_id"), QString()}};
    m_endpoint.publish(rosbridge::protocol::topic::log.name,
                       {{QStringLiteral("header"), header},
                        {QStringLiteral("level"), static_cast<int>(level)},
                        {QStringLiteral("name"), name},
                        {QStringLiteral("msg"), asLine(text)},
                        {QStringLiteral("file"), QString()},
                        {QStringLiteral("function"), QString()},
                        {QStringLiteral("line"), 0},
                        {QStringLiteral("topics"), QCborArray()}});
}

} // namespace robot::network
