// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/events/Events.h"

#include <utility>

namespace host::device::events {

void Events::add(Event event)
{
    if (event.text.size() > longestText)
        event.text = event.text.left(longestText) + QChar(0x2026);
    if (event.source.size() > longestText)
        event.source = event.source.left(longestText) + QChar(0x2026);
    if (m_events.size() == capacity) {
        m_events.pop_front();
        ++m_first;
    }
    m_events.push_back(std::move(event));
    Q_EMIT changed();
}

void Events::clear()
{
    m_first = end();
    m_events.clear();
    Q_EMIT changed();
}

} // namespace host::device::events
