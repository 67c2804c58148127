// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Reconnection.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Timing.h"

#include <algorithm>

namespace host::device::connection {

Reconnection::Reconnection(Connection& connection, const Timing& timing)
    : m_connection(connection),
      m_first(timing.firstPause),
      m_longest(timing.longestPause),
      m_lasting(timing.lasting),
      m_next(m_first)
{
    m_pause.setSingleShot(true);
    m_pause.setTimerType(Qt::PreciseTimer); // it is told in seconds
    connect(&m_pause, &QTimer::timeout, this, &Reconnection::attempt);
    connect(&connection, &Connection::lost, this, &Reconnection::onLost);
    connect(&connection, &Connection::stateChanged, this, &Reconnection::onStateChanged);
}

void Reconnection::setAutomatic(bool isAutomatic)
{
    m_isAutomatic = isAutomatic;
    if (!isAutomatic)
        giveUp();
}

std::optional<std::chrono::milliseconds> Reconnection::untilNextAttempt() const
{
    if (!m_pause.isActive())
        return std::nullopt;
    return m_pause.remainingTimeAsDuration();
}

void Reconnection::forget()
{
    m_pause.stop();
    m_isTrying = false;
    m_isLost = false;
    m_next = m_first;
    Q_EMIT changed();
}

void Reconnection::giveUp()
{
    if (!m_isTrying)
        return;
    m_pause.stop();
    m_isTrying = false; // before the attempt ends: another would follow
    m_connection.close();
    Q_EMIT changed();
}

void Reconnection::onLost(const QString& address, std::chrono::milliseconds lasted)
{
    m_isLost = true;
    m_isTrying = m_isAutomatic;
    m_address = address;
    if (lasted >= m_lasting)
        m_next = m_first;
    if (m_isTrying)
        wait();
    Q_EMIT changed();
}

void Reconnection::onStateChanged(int state)
{
    if (state >= Connection::connected && m_isLost) {
        m_isLost = false;
        m_isTrying = false;
        Q_EMIT changed();
    } else if (state == Connection::notConnected && m_isTrying && !m_pause.isActive()) {
        wait();
        Q_EMIT changed();
    }
}

/// Before the next attempt, twice as long as before the last one.
void Reconnection::wait()
{
    m_pause.start(m_next);
    m_next = std::min(2 * m_next, m_longest);
}

void Reconnection::attempt()
{
    m_connection.open(m_address);
    Q_EMIT changed();
}

} // namespace host::device::connection
