// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/Conversation.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/server/Publication.h"
#include "rosbridge/server/Request.h"
#include "rosbridge/server/ServiceRegistry.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace rosbridge::server {

namespace {

constexpr std::chrono::milliseconds longestThrottle = std::chrono::hours(1);

const std::map<QString, Conversation::Level>& levels()
{
    static const std::map<QString, Conversation::Level> levels{
        {QStringLiteral("none"), Conversation::Level::None},
        {QStringLiteral("error"), Conversation::Level::Error},
        {QStringLiteral("warning"), Conversation::Level::Warning},
        {QStringLiteral("info"), Conversation::Level::Info},
    };
    return levels;
}

QString nameOf(Conversation::Level level)
{
    return std::find_if(levels().cbegin(), levels().cend(),
                        [level](const auto& entry) { return entry.second == level; })
        ->first;
}

/// With and without the slash.
std::array<QString, 2> bothForms(const QString& canonicalName)
{
    return {canonicalName, canonicalName.mid(1)};
}

std::optional<Encoding> encodingFor(const QString& compression)
{
    if (compression.isEmpty() || compression == QLatin1String("none"))
        return Encoding::Json;
    if (compression == QLatin1String("cbor"))
        return Encoding::Cbor;
    if (compression == QLatin1String("cbor-raw"))
        return Encoding::CborRaw;
    return std::nullopt;
}

} // namespace

Conversation::Conversation(const Peer& peer, const TopicRegistry& topics,
                           const ServiceRegistry& services, const Limits& limits, Send send)
    : m_peer(peer),
      m_topics(topics),
      m_services(services),
      m_limits(limits),
      m_send(std::move(send))
{
}

void Conversation::handle(const QCborMap& message)
{
    using Operation = void (Conversation::*)(Request&);
    static const QHash<QString, Operation> operations{
        {QStringLiteral("set_level"), &Conversation::setLevel},
        {QStringLiteral("advertise"), &Conversation::advertise},
        {QStringLiteral("unadvertise"), &Conversation::unadvertise},
        {QStringLiteral("publish"), &Conversation::publish},
        {QStringLiteral("subscribe"), &Conversation::subscribe},
        {QStringLiteral("unsubscribe"), &Conversation::unsubscribe},
        {QStringLiteral("call_service"), &Conversation::callService},
        {QStringLiteral("service_response"), &Conversation::refuseServiceResponse},
        {QStringLiteral("status"), &Conversation::ignoreStatus},
    };

    Request request(message, m_limits.textLength);
    if (const Operation operation = operations.value(request.op()))
        (this->*operation)(request);
    else
        request.fail(tr("this robot does not know the operation"));
    if (!request.error().isEmpty())
        status(request, Level::Error, request.error());
}

void Conversation::tell(Level level, const QString& text)
{
    sendStatus(level, text, QCborValue(QCborValue::Undefined));
}

void Conversation::offer(const Publication& publication, Time now)
{
    for (const QString& name : bothForms(publication.topic())) {
        const auto subscription = m_subscriptions.find(name);
        if (subscription == m_subscriptions.end())
            continue;
        subscription->second.offer(publication, now);
        sendDue(subscription->second, now);
    }
}

bool Conversation::isSubscribed(const QString& topic) const
{
    const auto names = bothForms(topic);
    return std::any_of(names.begin(), names.end(), [this](const QString& name) {
        return m_subscriptions.find(name) != m_subscriptions.cend();
    });
}

void Conversation::sendDue(Time now)
{
    for (auto& [name, subscription] : m_subscriptions)
        sendDue(subscription, now);
}

std::optional<Conversation::Time> Conversation::due() const
{
    std::optional<Time> earliest;
    for (const auto& [name, subscription] : m_subscriptions) {
        const std::optional<Time> due = subscription.due();
        if (due && (!earliest || *due < *earliest))
            earliest = due;
    }
    return earliest;
}

void Conversation::setLevel(Request& request)
{
    const QString name = request.text("level");
    const auto level = levels().find(name);
    if (level == levels().cend())
        request.fail(tr("level must be none, error, warning or info"));
    if (!request.error().isEmpty())
        return;
    m_level = level->second;
    status(request, Level::Info, tr("the level is \"%1\"").arg(name));
}

void Conversation::advertise(Request& request)
{
    const QString name = request.text("topic");
    const QString type = request.text("type");
    if (!request.error().isEmpty())
        return;
    const TopicRegistry::Topic* topic = m_topics.find(name);
    const QString canonical = protocol::canonicalName(name);
    if (!topic)
        request.fail(TopicRegistry::unknown(name));
    else if (!topic->handler)
        request.fail(TopicRegistry::notForClients(name));
    else if (protocol::canonicalType(type) != topic->type)
        request.fail(tr("the type of \"%1\" is %2, not %3").arg(name, topic->type, type));
    else if (!m_advertised.contains(canonical) && m_advertised.size() >= m_limits.advertisements)
        request.fail(tr("a client may advertise at most %1 topics").arg(m_limits.advertisements));
    if (!request.error().isEmpty())
        return;
    m_advertised.insert(canonical);
    status(request, Level::Info, tr("\"%1\" is advertised").arg(name));
}

void Conversation::unadvertise(Request& request)
{
    const QString name = request.text("topic");
    if (!request.error().isEmpty())
        return;
    if (m_advertised.remove(protocol::canonicalName(name)))
        status(request, Level::Info, tr("\"%1\" is no longer advertised").arg(name));
    else
        status(request, Level::Warning, tr("this client did not advertise \"%1\"").arg(name));
}

void Conversation::publish(Request& request)
{
    const QString name = request.text("topic");
    const QCborMap msg = request.object("msg");
    if (!request.error().isEmpty())
        return;
    const QString refusal = m_topics.deliver(m_peer, name, msg);
    if (!refusal.isEmpty())
        request.fail(refusal);
}

void Conversation::subscribe(Request& request)
{
    const QString name = request.text("topic");
    const QString type = request.optionalText("type");
    const QString compression = request.optionalText("compression");
    const qint64 throttle = request.optionalCount("throttle_rate", longestThrottle.count());
    const qint64 queueLength =
        request.optionalCount("queue_length", std::numeric_limits<qint32>::max());
    if (!request.error().isEmpty())
        return;

    const std::optional<Encoding> encoding = encodingFor(compression);
    const TopicRegistry::Topic* topic = m_topics.find(name);
    auto subscription = m_subscriptions.find(name);
    const bool isNew =
        subscription == m_subscriptions.end() || !subscription->second.contains(request.id());
    if (!encoding || (encoding == Encoding::CborRaw && !m_topics.hasRaw()))
        request.fail(unknownCompression(compression));
    else if (!topic)
        request.fail(TopicRegistry::unknown(name));
    else if (topic->handler)
        request.fail(
            tr("the robot accepts commands on \"%1\" and publishes nothing there").arg(name));
    else if (!type.isEmpty() && protocol::canonicalType(type) != topic->type)
        request.fail(tr("the type of \"%1\" is %2, not %3").arg(name, topic->type, type));
    else if (isNew && requestCount() >= m_limits.subscriptions)
        request.fail(tr("a client may have at most %1 subscriptions").arg(m_limits.subscriptions));
    if (!request.error().isEmpty())
        return;

    const bool isFirst = subscription == m_subscriptions.end();
    if (isFirst)
        subscription =
            m_subscriptions.emplace(name, Subscription(name, m_limits, topic->kind)).first;
    subscription->second.request(request.id(),
                                 {Time(throttle), static_cast<int>(queueLength), *encoding});
    if (isFirst && topic->last)
        subscription->second.offer(*topic->last, Time(0)); // any time will do for the first
    if (queueLength > m_limits.queueLength)
        status(request, Level::Warning,
               tr("queue_length is reduced to %1, the maximum").arg(m_limits.queueLength));
    if (!request.value("fragment_size").isUndefined())
        status(request, Level::Warning, tr("fragment_size is ignored, messages are sent whole"));
    status(request, Level::Info, tr("subscribed to \"%1\"").arg(name));
}

void Conversation::unsubscribe(Request& request)
{
    const QString name = request.text("topic");
    if (!request.error().isEmpty())
        return;
    const auto subscription = m_subscriptions.find(name);
    if (subscription == m_subscriptions.end() ||
        (!request.id().isUndefined() && !subscription->second.contains(request.id()))) {
        status(request, Level::Warning, tr("there is no such subscription to \"%1\"").arg(name));
        return;
    }
    if (!request.id().isUndefined())
        subscription->second.cancel(request.id());
    if (request.id().isUndefined() || subscription->second.requestCount() == 0)
        m_subscriptions.erase(subscription);
    status(request, Level::Info, tr("unsubscribed from \"%1\"").arg(name));
}

void Conversation::callService(Request& request)
{
    const QString name = request.text("service");
    const QString compression = request.optionalText("compression");
    const std::optional<Encoding> encoding = encodingFor(compression);
    if (!encoding || encoding == Encoding::CborRaw) // which is for topics
        request.fail(unknownCompression(compression));
    const ServiceReply reply = request.error().isEmpty()
                                   ? m_services.call(m_peer, name, request.value("args"))
                                   : ServiceReply::failure(request.error());
    if (name.isEmpty())
        return; // no telling whom to answer

    QCborMap response{{QStringLiteral("op"), QStringLiteral("service_response")},
                      {QStringLiteral("service"), name},
                      {QStringLiteral("result"), reply.error.isEmpty()}};
    if (reply.error.isEmpty())
        response.insert(QStringLiteral("values"), reply.values);
    else
        response.insert(QStringLiteral("values"), reply.error);
    if (!request.id().isUndefined())
        response.insert(QStringLiteral("id"), request.id());
    m_send(encode(response, encoding.value_or(Encoding::Json)), Outbox::Kind::Answer);
}

void Conversation::refuseServiceResponse(Request& request)
{
    request.fail(tr("the robot called no service of this client"));
}

void Conversation::ignoreStatus(Request& /*request*/)
{
    // A client may complain; there is nobody here to read it.
}

void Conversation::sendDue(Subscription& subscription, Time now)
{
    while (const std::optional<EncodedMessage> frame = subscription.take(now))
        m_send(*frame, subscription.kind());
}

void Conversation::status(const Request& request, Level level, const QString& text)
{
    sendStatus(level, request.op().isEmpty() ? text : request.op() + QLatin1String(": ") + text,
               request.id());
}

void Conversation::sendStatus(Level level, const QString& text, const QCborValue& id)
{
    if (level > m_level)
        return;
    QCborMap message{{QStringLiteral("op"), QStringLiteral("status")},
                     {QStringLiteral("level"), nameOf(level)},
                     {QStringLiteral("msg"), text}};
    if (!id.isUndefined())
        message.insert(QStringLiteral("id"), id);
    m_send(encode(message, Encoding::Json), Outbox::Kind::Answer);
}

QString Conversation::unknownCompression(const QString& compression)
{
    return tr("the compression \"%1\" is unknown here; use none, cbor or, for topics, "
              "cbor-raw")
        .arg(compression);
}

int Conversation::requestCount() const
{
    int count = 0;
    for (const auto& [name, subscription] : m_subscriptions)
        count += subscription.requestCount();
    return count;
}

} // namespace rosbridge::server
