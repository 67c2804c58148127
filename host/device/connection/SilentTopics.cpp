// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/SilentTopics.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/MessageRole.h"
#include "host/device/connection/Offer.h"
#include "rosbridge/protocol/Topics.h"

namespace host::device::connection {

using Compression = Followers::Compression;

SilentTopics::SilentTopics(Connection& connection, const Offer& offer,
                           std::chrono::milliseconds patience)
    : m_connection(connection),
      m_offer(offer),
      m_patience(patience)
{
    m_timer.setInterval(patience);
    connect(&m_timer, &QTimer::timeout, this, &SilentTopics::check);
    connect(&connection.followers(), &Followers::subscribed, this, [this] {
        if (!m_timer.isActive())
            m_timer.start();
    });
    connect(&connection, &Connection::stateChanged, this, [this](int state) {
        if (state != Connection::notConnected)
            return;
        m_timer.stop();
        m_tried.clear();
    });
}

void SilentTopics::check()
{
    Followers& followers = m_connection.followers();
    const auto age = followers.dataAge();
    if (!age || *age > m_patience)
        return; // it is not about a topic
    if (followers.silent({}).isEmpty())
        m_timer.stop();
    const QStringList silent = followers.silent(m_patience);
    for (const QString& topic : silent) {
        const bool isBinary = followers.compression(topic) == Compression::Cbor;
        if (m_tried.contains(topic)) {
            if (isBinary)
                followers.setCompression(topic, Compression::None);
        } else if (m_offer.state(topic) == Offer::State::Offered &&
                   topic != rosbridge::protocol::topic::log.name) { // which may have nothing to say
            tryOther(topic, isBinary ? Compression::None : Compression::Cbor);
        }
    }
}

void SilentTopics::tryOther(const QString& topic, Compression compression)
{
    m_tried.insert(topic);
    m_connection.followers().setCompression(topic, compression);
    const QString name = m_connection.remappings().theirs(topic);
    const QString seconds = QString::number(std::chrono::duration<double>(m_patience).count());
    const QString words =
        compression == Compression::None
            ? tr("Nothing came on %1 for %2 s, while other topics did. It is now requested as JSON "
                 "instead of CBOR.")
            : tr("Nothing came on %1 for %2 s, while other topics did. It is requested as CBOR "
                 "instead of JSON for another %2 s.");
    Q_EMIT message(baseLogLine, words.arg(name, seconds));
}

} // namespace host::device::connection
