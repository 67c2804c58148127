// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/Paced.h"

#include <utility>

namespace host::workbench::window {

Paced::Paced(std::function<void()> show) : m_show(std::move(show))
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(std::chrono::milliseconds(40));
    QObject::connect(&m_pause, &QTimer::timeout, &m_pause, [this] {
        if (std::exchange(m_isRequested, false))
            request();
    });
}

void Paced::request()
{
    if (m_pause.isActive()) {
        m_isRequested = true;
        return;
    }
    m_pause.start();
    m_show();
}

} // namespace host::workbench::window
