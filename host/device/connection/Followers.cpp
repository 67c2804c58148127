// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Followers.h"

#include "host/device/connection/Remappings.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Topics.h"

#include <algorithm>

namespace host::device::connection {

namespace {

/// Its lines are no data: they come from a robot whose sensors are silent, too.
const QString logTopic = rosbridge::protocol::topic::log.name;

} // namespace

Followers::Followers(const Remappings& remappings) : m_remappings(remappings)
{
    connect(&remappings, &Remappings::changed, this,
            [this](const QString& topic) { subscribe(topic); });
}

int Followers::follow(const QString& topic, const QString& type, const Client::Handler& handler,
                      std::chrono::milliseconds throttle)
{
    const QString name = rosbridge::protocol::canonicalName(topic);
    m_followers.push_back({++m_lastId, name, type, handler, throttle, QString()});
    subscribe(name);
    return m_lastId;
}

void Followers::unfollow(int id)
{
    const auto follower = std::find_if(m_followers.begin(), m_followers.end(),
                                       [id](const Follower& each) { return each.id == id; });
    if (follower == m_followers.end())
        return;
    if (m_client)
        m_client->unsubscribe(follower->subscription);
    m_followers.erase(follower);
}

void Followers::open(Client& client)
{
    m_client = &client;
    m_topics.clear();
}

void Followers::subscribe(const QString& topic)
{
    if (!m_client)
        return;
    for (const Follower& follower : m_followers) {
        if (follower.topic == topic)
            m_client->unsubscribe(follower.subscription);
    }
    for (Follower& follower : m_followers) {
        if (follower.topic == topic)
            subscribe(follower);
    }
}

void Followers::subscribeRest()
{
    for (Follower& follower : m_followers) {
        if (follower.subscription.isEmpty())
            subscribe(follower);
    }
}

void Followers::close()
{
    m_client = nullptr;
    m_newestData.invalidate();
    for (Follower& follower : m_followers)
        follower.subscription.clear();
}

void Followers::subscribe(Follower& follower)
{
    if (!m_client)
        return; // the link ended by the subscription before
    Client::SubscribeOptions options;
    options.compression = Client::Compression::Cbor;
    options.throttleRate = follower.throttle;
    options.queueLength = follower.throttle.count() > 0 ? 1 : 0; // the newest is not lost
    // A client that is left may still hear: it speaks of a link that is over.
    const auto hear = [this, client = m_client, isData = follower.topic != logTopic,
                       handler = follower.handler](const QCborMap& message) {
        if (client != m_client)
            return;
        if (isData)
            m_newestData.start();
        handler(message);
    };
    follower.subscription =
        m_client->subscribe(m_remappings.theirs(follower.topic), follower.type, options, hear);
    if (!follower.subscription.isEmpty())
        m_topics.insert(follower.subscription, follower.topic);
}

std::optional<std::chrono::milliseconds> Followers::dataAge() const
{
    if (!m_newestData.isValid())
        return std::nullopt;
    return std::chrono::milliseconds(m_newestData.elapsed());
}

} // namespace host::device::connection
