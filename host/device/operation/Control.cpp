// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/operation/Control.h"

#include "host/device/connection/Connection.h"

namespace host::device::operation {

using connection::Connection;

Control::Control(Connection& connection, const connection::Timing& timing)
    : m_connection(connection)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(timing.control);
    connect(&m_pause, &QTimer::timeout, &connection, &Connection::takeControl);
    connect(&connection, &Connection::stateChanged, this, &Control::onStateChanged);
    connect(&connection, &Connection::statusChanged, this, &Control::changed);
    connect(&connection, &Connection::controlRefused, this, &Control::onRefused);
}

Control::State Control::state() const
{
    if (m_connection.state() == Connection::passive)
        return m_isWaiting ? State::Waiting : State::NotOurs;
    if (m_connection.state() != Connection::connected)
        return State::NotConnected;
    return m_connection.hasControl() ? State::Ours : State::Anyones;
}

QString Control::inWords() const
{
    const QString holder = m_connection.controller();
    switch (state()) {
    case State::Anyones:
        return tr("This robot has no control: all who connect command it.");
    case State::Ours:
        return tr("This device is in control of the robot.");
    case State::NotOurs:
    case State::Waiting:
        return holder.isEmpty() ? tr("This device is not in control of the robot.")
                                : tr("This device is not in control of the robot: %1.").arg(holder);
    case State::NotConnected:
        break;
    }
    return tr("Not connected.");
}

void Control::take()
{
    giveUp();
    m_connection.takeControl();
}

void Control::takeWhenFree()
{
    if (state() != State::NotOurs)
        return;
    m_isWaiting = true;
    m_connection.takeControl();
    Q_EMIT changed();
}

void Control::giveUp()
{
    m_pause.stop();
    m_isWaiting = false;
    Q_EMIT changed();
}

void Control::release()
{
    m_connection.releaseControl();
}

void Control::onRefused(const QString& words)
{
    if (m_isWaiting)
        m_pause.start();
    else
        Q_EMIT problem(words);
}

void Control::onStateChanged(int state)
{
    if (state == Connection::passive)
        Q_EMIT changed();
    else
        giveUp();
}

} // namespace host::device::operation
