// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Followers.h"

#include "host/device/connection/Remappings.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Topics.h"

#include <algorithm>
#include <array>

namespace host::device::connection {

namespace {

using namespace std::chrono_literals;

/// Its lines are no data: they come from a robot whose sensors are silent, too.
const QString logTopic = rosbridge::protocol::topic::log.name;

/// A type of large messages, and the least time between two of them: as often as anybody sees.
struct Large
{
    QLatin1String type;
    std::chrono::milliseconds throttle;
};

const Large* findLarge(const QString& type)
{
    static const std::array large{
        Large{QLatin1String("nav_msgs/OccupancyGrid"), 1s},
        Large{QLatin1String("sensor_msgs/CompressedImage"), 33ms},
        Large{QLatin1String("sensor_msgs/Image"), 40ms},
        Large{QLatin1String("sensor_msgs/LaserScan"), 40ms},
    };
    const auto* const found = std::find_if(large.begin(), large.end(),
                                           [&](const Large& each) { return each.type == type; });
    return found == large.end() ? nullptr : found;
}

} // namespace

Followers::Followers(const Remappings& remappings) : m_remappings(remappings)
{
    connect(&remappings, &Remappings::changed, this, &Followers::onRenamed);
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

void Followers::subscribeAgain()
{
    QStringList topics;
    for (const Follower& follower : m_followers)
        topics.append(follower.topic);
    topics.removeDuplicates();
    for (const QString& topic : std::as_const(topics))
        subscribe(topic);
}

void Followers::close()
{
    m_client = nullptr;
    m_newestData.invalidate();
    m_receptions.clear();
    m_delay.reset();
    for (Follower& follower : m_followers)
        follower.subscription.clear();
}

void Followers::subscribe(Follower& follower)
{
    if (!m_client)
        return; // the link ended by the subscription before
    const Large* const large = findLarge(follower.type);
    Reception& reception = this->reception(follower);
    if (!reception.sinceSubscribed.isValid())
        reception.sinceSubscribed.start();
    Client::SubscribeOptions options;
    options.compression = reception.compression;
    options.throttleRate = std::max(follower.throttle, large ? large->throttle : 0ms);
    // Where the line is slow, the newest takes the place of what still waits.
    options.queueLength = options.throttleRate > 0ms ? 1 : 0;
    // A client that is left may still hear: it speaks of a link that is over.
    const auto hear = [this, client = m_client, id = follower.id, topic = follower.topic,
                       type = follower.type, handler = follower.handler](const QCborMap& message) {
        if (client != m_client)
            return;
        m_receptions[topic].isHeard = true;
        if (topic != logTopic) {
            m_newestData.start();
            m_delay.hear(topic, message, Delay::Clock::now());
        }
        if (isFirst(id, topic))
            Q_EMIT received(topic, type, message);
        handler(message);
    };
    follower.subscription =
        m_client->subscribe(m_remappings.theirs(follower.topic), follower.type, options, hear);
    if (!follower.subscription.isEmpty())
        m_topics.insert(follower.subscription, follower.topic);
    Q_EMIT subscribed(follower.topic);
}

/// Of those that hear the topic.
bool Followers::isFirst(int id, const QString& topic) const
{
    const auto first =
        std::find_if(m_followers.begin(), m_followers.end(), [&](const Follower& each) {
            return each.topic == topic && !each.subscription.isEmpty();
        });
    return first != m_followers.end() && first->id == id;
}

/// Begins with what suits the type.
Followers::Reception& Followers::reception(const Follower& follower)
{
    const auto found = m_receptions.find(follower.topic);
    if (found != m_receptions.end())
        return *found;
    Reception reception;
    reception.compression = findLarge(follower.type) ? Compression::Cbor : Compression::None;
    return *m_receptions.insert(follower.topic, reception);
}

void Followers::onRenamed(const QString& topic)
{
    m_receptions.remove(topic);
    subscribe(topic);
}

std::optional<std::chrono::milliseconds> Followers::dataAge() const
{
    if (!m_newestData.isValid())
        return std::nullopt;
    return std::chrono::milliseconds(m_newestData.elapsed());
}

std::optional<std::chrono::milliseconds> Followers::delay() const
{
    return m_delay.value(Delay::Clock::now());
}

QStringList Followers::silent(std::chrono::milliseconds time) const
{
    QStringList topics;
    for (const Follower& follower : m_followers) {
        const Reception reception = m_receptions.value(follower.topic);
        const bool isSubscribed = reception.sinceSubscribed.isValid();
        if (isSubscribed && !reception.isHeard && !topics.contains(follower.topic) &&
            reception.sinceSubscribed.hasExpired(time.count()))
            topics += follower.topic;
    }
    return topics;
}

Followers::Compression Followers::compression(const QString& topic) const
{
    return m_receptions.value(topic).compression;
}

void Followers::setCompression(const QString& topic, Compression compression)
{
    m_receptions[topic].compression = compression;
    subscribe(topic);
}

} // namespace host::device::connection
