// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/Subscription.h"

#include "rosbridge/server/Publication.h"

#include <algorithm>
#include <utility>

namespace rosbridge::server {

Subscription::Subscription(const QString& name, const Limits& limits, Outbox::Kind kind)
    : m_name(name),
      m_kind(kind),
      m_maximumLength(limits.queueLength),
      m_maximumBytes(limits.queueBytes)
{
}

void Subscription::request(const QCborValue& id, const Options& options)
{
    m_requests.insert(id, options);
    combine();
}

void Subscription::cancel(const QCborValue& id)
{
    m_requests.remove(id);
    combine();
}

void Subscription::offer(const Publication& publication, Time now)
{
    if (m_combined.queueLength == 0 && now < earliest())
        return;
    m_queue.push_back(publication.frame(m_name, m_combined.encoding));
    m_queuedBytes += m_queue.back().bytes.size();
    const auto length = static_cast<size_t>(std::max(1, m_combined.queueLength));
    while (m_queue.size() > length || (m_queue.size() > 1 && m_queuedBytes > m_maximumBytes)) {
        m_queuedBytes -= m_queue.front().bytes.size();
        m_queue.pop_front();
    }
}

std::optional<EncodedMessage> Subscription::take(Time now)
{
    if (m_queue.empty() || now < earliest())
        return std::nullopt;
    const EncodedMessage frame = m_queue.front();
    m_queue.pop_front();
    m_queuedBytes -= frame.bytes.size();
    m_lastSent = now;
    return frame;
}

std::optional<Subscription::Time> Subscription::due() const
{
    if (m_queue.empty())
        return std::nullopt;
    return earliest();
}

void Subscription::combine()
{
    if (m_requests.isEmpty())
        return;
    m_combined = m_requests.first();
    for (const Options& options : std::as_const(m_requests)) {
        m_combined.throttle = std::min(m_combined.throttle, options.throttle);
        m_combined.queueLength = std::max(m_combined.queueLength, options.queueLength);
        m_combined.encoding = std::max(m_combined.encoding, options.encoding);
    }
    m_combined.queueLength = std::min(m_combined.queueLength, m_maximumLength);
}

Subscription::Time Subscription::earliest() const
{
    return m_lastSent ? *m_lastSent + m_combined.throttle : Time::min();
}

} // namespace rosbridge::server
