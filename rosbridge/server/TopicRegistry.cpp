// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/TopicRegistry.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/server/Authority.h"
#include "rosbridge/server/Publication.h"

#include <utility>

namespace rosbridge::server {

TopicRegistry::TopicRegistry(const Authority& authority) : m_authority(authority) {}

void TopicRegistry::addPublished(const QString& name, const QString& type)
{
    addCommand(name, type, Access::Anyone, nullptr);
}

void TopicRegistry::addLatched(const QString& name, const QString& type)
{
    addPublished(name, type);
    m_topics[name].isLatched = true;
}

void TopicRegistry::addFleeting(const QString& name, const QString& type)
{
    addPublished(name, type);
    m_topics[name].kind = Outbox::Kind::Fleeting;
}

void TopicRegistry::addCommand(const QString& name, const QString& type, Access access,
                               Handler handler)
{
    Q_ASSERT(name == protocol::canonicalName(name));
    Q_ASSERT(!m_topics.contains(name));
    m_topics.insert(name, {type, std::move(handler), access, false, Outbox::Kind::Topic, nullptr});
}

const TopicRegistry::Topic* TopicRegistry::find(const QString& name) const
{
    const auto topic = m_topics.constFind(protocol::canonicalName(name));
    return topic == m_topics.cend() ? nullptr : &*topic;
}

std::shared_ptr<const Publication> TopicRegistry::publication(const QString& topic,
                                                              const QCborMap& msg) const
{
    Publication::MakeRaw makeRaw;
    if (const Topic* known = find(topic); known && m_makeRaw)
        makeRaw = [make = m_makeRaw, type = known->type](const QCborMap& raw) {
            return make(type, raw);
        };
    return std::make_shared<const Publication>(topic, msg, makeRaw);
}

void TopicRegistry::keep(const std::shared_ptr<const Publication>& publication)
{
    const auto topic = m_topics.find(publication->topic());
    if (topic != m_topics.end() && topic->isLatched)
        topic->last = publication;
}

QString TopicRegistry::deliver(const Peer& from, const QString& name, const QCborMap& msg) const
{
    const Topic* topic = find(name);
    if (!topic)
        return unknown(name);
    if (!topic->handler)
        return notForClients(name);
    const QString refusal =
        topic->access == Access::RequiresControl ? m_authority.refusal(from) : QString();
    return refusal.isEmpty() ? topic->handler(from, msg) : refusal;
}

QString TopicRegistry::unknown(const QString& name)
{
    return tr("this robot has no topic \"%1\"; /rosapi/topics lists them").arg(name);
}

QString TopicRegistry::notForClients(const QString& name)
{
    return tr("the robot itself publishes \"%1\" and accepts no messages there").arg(name);
}

} // namespace rosbridge::server
