// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/client/Inbox.h"

#include "rosbridge/protocol/CanonicalName.h"

#include <QPointer>
#include <QStringList>

#include <utility>

namespace rosbridge::client {

void Inbox::addCall(const QString& id, const PendingCall& call)
{
    m_calls.insert(id, call);
}

void Inbox::answer(const QString& id, const Result& result)
{
    const auto call = m_calls.constFind(id);
    if (call == m_calls.cend())
        return;
    const Callback callback = call->callback;
    m_calls.erase(call);
    callback(result);
}

void Inbox::addSubscription(const QString& id, const QString& topic, const Handler& handler)
{
    m_subscriptions.insert(id, {topic, handler});
}

QString Inbox::removeSubscription(const QString& id)
{
    return m_subscriptions.take(id).topic;
}

QString Inbox::topicIn(const QByteArray& bytes) const
{
    QString found; // the longest, as one name may begin with another
    for (const Subscription& subscription : m_subscriptions)
        if (subscription.topic.size() > found.size() && bytes.contains(subscription.topic.toUtf8()))
            found = subscription.topic;
    return found;
}

QHash<QString, Inbox::PendingCall> Inbox::clear()
{
    m_subscriptions.clear();
    return std::exchange(m_calls, {});
}

void Inbox::receive(const QCborMap& message)
{
    const QString op = message.value(QLatin1String("op")).toString();
    if (op == QLatin1String("publish"))
        receivePublish(message);
    else if (op == QLatin1String("service_response"))
        receiveServiceResponse(message);
    else if (op == QLatin1String("status"))
        receiveStatus(message);
    else
        Q_EMIT malformedReceived(tr("the operation \"%1\" is not for clients").arg(op));
}

void Inbox::receivePublish(const QCborMap& message)
{
    const QCborValue topic = message.value(QLatin1String("topic"));
    const QCborValue msg = message.value(QLatin1String("msg"));
    if (!topic.isString() || !msg.isMap()) {
        Q_EMIT malformedReceived(tr("\"publish\" needs a text \"topic\" and an object \"msg\""));
        return;
    }
    const QString name = protocol::canonicalName(topic.toString());
    const QCborMap content = msg.toMap();
    const QPointer<Inbox> alive(this);
    const QStringList ids = m_subscriptions.keys(); // handlers may subscribe and unsubscribe
    for (const QString& id : ids) {
        const auto subscription = m_subscriptions.constFind(id);
        if (subscription == m_subscriptions.cend() || subscription->topic != name)
            continue;
        const Handler handler = subscription->handler;
        handler(content);
        if (!alive)
            return;
    }
}

void Inbox::receiveServiceResponse(const QCborMap& message)
{
    const QCborValue id = message.value(QLatin1String("id"));
    const QCborValue ok = message.value(QLatin1String("result"));
    const QCborValue values = message.value(QLatin1String("values"));
    if (!id.isString() || !ok.isBool()) {
        Q_EMIT malformedReceived(
            tr("\"service_response\" needs a text \"id\" and a true or false \"result\""));
        return;
    }
    const QString service = m_calls.value(id.toString()).service;
    Result result{ok.toBool(), values.toMap(), QString()};
    if (!result.ok)
        result.error = values.isString()
                           ? tr("The service %1 failed: %2").arg(service, values.toString())
                           : tr("The service %1 failed and did not say why.").arg(service);
    answer(id.toString(), result);
}

void Inbox::receiveStatus(const QCborMap& message)
{
    const QCborValue level = message.value(QLatin1String("level"));
    const QCborValue text = message.value(QLatin1String("msg"));
    if (!level.isString() || !text.isString()) {
        Q_EMIT malformedReceived(tr("\"status\" needs a text \"level\" and a text \"msg\""));
        return;
    }
    const QString id = message.value(QLatin1String("id")).toString();
    if (!m_calls.contains(id))
        Q_EMIT statusReceived(level.toString(), text.toString(), id);
}

} // namespace rosbridge::client
