// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/pace/Turns.h"

#include "host/workbench/pace/Refresh.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>

namespace host::workbench::pace {

Turns::Turns(QObject* parent) : QObject(parent)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &Turns::serve);
}

Turns& Turns::instance()
{
    static QPointer<Turns> turns;
    if (!turns)
        turns = new Turns(QCoreApplication::instance());
    return *turns;
}

void Turns::add(Refresh& refresh)
{
    m_waiting.append(&refresh);
    if (!m_pause.isActive())
        m_pause.start(0);
}

void Turns::remove(Refresh& refresh)
{
    m_waiting.removeAll(&refresh);
}

void Turns::serve()
{
    if (m_waiting.isEmpty())
        return;
    QElapsedTimer time;
    time.start();
    m_waiting.takeFirst()->show();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest); // now, by itself
    m_pause.start(static_cast<int>(time.elapsed()));
}

} // namespace host::workbench::pace
