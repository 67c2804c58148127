// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/Outbox.h"

#include <algorithm>

namespace rosbridge::server {

Outbox::Outbox(qint64 maximumBytes) : m_maximumBytes(maximumBytes) {}

bool Outbox::push(const EncodedMessage& frame, Kind kind)
{
    if (kind == Kind::Fleeting && !m_entries.empty())
        return true;
    while (!m_entries.empty() && m_bytes + frame.bytes.size() > m_maximumBytes) {
        if (dropOldestTopicMessage())
            continue;
        if (kind == Kind::Answer)
            return false;
        ++m_dropped;
        return true;
    }
    m_entries.push_back({frame, kind});
    m_bytes += frame.bytes.size();
    return true;
}

std::optional<EncodedMessage> Outbox::pop()
{
    if (m_entries.empty())
        return std::nullopt;
    const EncodedMessage frame = m_entries.front().frame;
    m_entries.pop_front();
    m_bytes -= frame.bytes.size();
    return frame;
}

void Outbox::clear()
{
    m_entries.clear();
    m_bytes = 0;
}

bool Outbox::dropOldestTopicMessage()
{
    const auto oldest = std::find_if(m_entries.begin(), m_entries.end(),
                                     [](const Entry& entry) { return entry.kind != Kind::Answer; });
    if (oldest == m_entries.end())
        return false;
    m_bytes -= oldest->frame.bytes.size();
    m_entries.erase(oldest);
    ++m_dropped;
    return true;
}

} // namespace rosbridge::server
