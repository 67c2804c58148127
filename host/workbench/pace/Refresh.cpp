// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/pace/Refresh.h"

#include "host/workbench/pace/Turns.h"

#include <utility>

namespace host::workbench::pace {

Refresh::Refresh(QObject& owner, std::function<void()> show)
    : m_show(std::move(show)),
      m_pause(&owner)
{
    m_pause.setSingleShot(true);
    QObject::connect(&m_pause, &QTimer::timeout, &m_pause, [this] {
        m_isWaiting = true;
        Turns::instance().add(*this);
    });
}

Refresh::~Refresh()
{
    cancel();
}

void Refresh::request(std::chrono::milliseconds pause)
{
    if (!m_isWaiting && !m_pause.isActive())
        m_pause.start(pause);
}

void Refresh::cancel()
{
    m_pause.stop();
    if (std::exchange(m_isWaiting, false))
        Turns::instance().remove(*this);
}

void Refresh::show()
{
    m_isWaiting = false;
    m_show();
}

} // namespace host::workbench::pace
