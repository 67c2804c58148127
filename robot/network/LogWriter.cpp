// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/LogWriter.h"

#include <chrono>
#include <utility>

namespace robot::network {

LogWriter::LogWriter(Log& log, const QString& name) : m_log(log), m_name(name)
{
    m_time.start();
    m_tellTimer.setSingleShot(true);
    m_tellTimer.setInterval(std::chrono::seconds(1));
    QObject::connect(&m_tellTimer, &QTimer::timeout, &m_tellTimer, [this] { tellLeftOut(); });
}

void LogWriter::write(Log::Level level, const QString& text)
{
    if (m_limit.allow(std::chrono::milliseconds(m_time.elapsed()))) {
        m_log.write(level, m_name, text);
        return;
    }
    ++m_leftOut;
    if (!m_tellTimer.isActive())
        m_tellTimer.start();
}

void LogWriter::tellLeftOut()
{
    m_log.write(Log::Level::Warning, m_name,
                tr("%1 more lines were left out: clients caused too many")
                    .arg(std::exchange(m_leftOut, 0)));
}

} // namespace robot::network
