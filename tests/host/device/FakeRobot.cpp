// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FakeRobot.h"

#include "ServerIdentity.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWebSocket>

#include <algorithm>
#include <utility>

namespace {

QString json(const QCborMap& map)
{
    return QString::fromUtf8(QJsonDocument(map.toJsonObject()).toJson(QJsonDocument::Compact));
}

/// Of @p message, nested ones too, what @p sample does not have; empty where there is nothing.
QString unknownField(const QCborMap& message, const QCborMap& sample)
{
    for (auto field = message.begin(); field != message.end(); ++field) {
        const QCborValue known = sample.value(field.key().toString());
        if (known.isUndefined())
            return field.key().toString();
        const QString nested = unknownField(field.value().toMap(), known.toMap());
        if (!nested.isEmpty())
            return nested;
    }
    return {};
}

} // namespace

FakeRobot::FakeRobot(quint16 port) : FakeRobot(QWebSocketServer::NonSecureMode, {}, port) {}

FakeRobot::FakeRobot(const QString& certificate, quint16 port)
    : FakeRobot(QWebSocketServer::SecureMode, certificate, port)
{
}

FakeRobot::FakeRobot(QWebSocketServer::SslMode mode, const QString& certificate, quint16 port)
    : m_server(QStringLiteral("robot"), mode)
{
    if (mode == QWebSocketServer::SecureMode)
        m_server.setSslConfiguration(serverIdentity(certificate));
    m_server.listen(QHostAddress::LocalHost, port);
    connect(&m_server, &QWebSocketServer::newConnection, this, [this] {
        QWebSocket* const client = m_server.nextPendingConnection();
        m_clients.append(client);
        connect(client, &QWebSocket::textMessageReceived, this,
                [this, client](const QString& text) { receive(client, text); });
        connect(client, &QWebSocket::disconnected, this, [this, client] {
            m_clients.removeOne(client);
            client->deleteLater();
        });
    });
}

FakeRobot::~FakeRobot()
{
    for (QWebSocket* client : std::as_const(m_clients))
        client->disconnect(this);
    qDeleteAll(m_clients);
}

QString FakeRobot::address() const
{
    const bool isSecure = m_server.secureMode() == QWebSocketServer::SecureMode;
    return (isSecure ? QStringLiteral("wss://127.0.0.1:%1") : QStringLiteral("127.0.0.1:%1"))
        .arg(m_server.serverPort());
}

void FakeRobot::answer(const QString& service, const QCborMap& values)
{
    m_answers.insert(service, values);
}

void FakeRobot::answerTrigger(const QString& service, bool success, const QString& message)
{
    answer(service, {{QStringLiteral("success"), success}, {QStringLiteral("message"), message}});
}

void FakeRobot::obey()
{
    for (const char* service : {"/control/acquire", "/control/release", "/drive/disable",
                                "/arm/torque", "/arm/line0", "/arm/line1", "/arm/line2"})
        answerTrigger(QLatin1String(service), true);
    answer(QStringLiteral("/camera/set_parameters"), {});
}

void FakeRobot::ignore(const QString& service)
{
    m_ignored.insert(service);
}

void FakeRobot::answerLate(const QString& service, const QCborMap& values)
{
    send({{QStringLiteral("op"), QStringLiteral("service_response")},
          {QStringLiteral("id"), m_ignoredIds.value(service)},
          {QStringLiteral("service"), service},
          {QStringLiteral("result"), true},
          {QStringLiteral("values"), values}});
}

void FakeRobot::send(const QCborMap& message)
{
    const QString text = QString::fromUtf8(rosbridge::protocol::encodeText(message));
    for (QWebSocket* client : std::as_const(m_clients))
        client->sendTextMessage(text);
}

void FakeRobot::log(const QString& name, const QString& text)
{
    const QCborMap log{{QStringLiteral("level"), 2},
                       {QStringLiteral("name"), name},
                       {QStringLiteral("msg"), text}};
    publish(QStringLiteral("/rosout"), log);
}

void FakeRobot::publish(const QString& topic, const QCborMap& msg)
{
    const QCborMap message{{QStringLiteral("op"), QStringLiteral("publish")},
                           {QStringLiteral("topic"), topic},
                           {QStringLiteral("msg"), msg}};
    if (!m_rules)
        send(message);
    else
        for (QWebSocket* client : std::as_const(m_clients))
            publishByRules(client, message);
}

void FakeRobot::obeyRules(ros_types::Ros ros, const QMap<QString, QString>& types)
{
    m_rules = ros;
    m_types = types;
    QCborArray spelled;
    for (const QString& type : types)
        spelled.append(ros_types::spelled(ros, type));
    answer(QStringLiteral("/rosapi/topics"),
           {{QStringLiteral("topics"), QCborArray::fromStringList(types.keys())},
            {QStringLiteral("types"), spelled}});
}

void FakeRobot::publishByRules(QWebSocket* client, const QCborMap& message)
{
    const QString topic = message.value(QLatin1String("topic")).toString();
    bool isSubscribed = false;
    bool isBinary = false;
    for (const Subscription& subscription : std::as_const(m_subscriptions)) {
        if (subscription.client != client || subscription.topic != topic)
            continue;
        isSubscribed = true;
        isBinary |= subscription.compression == QLatin1String("cbor");
    }
    if (isSubscribed && !isBinary)
        client->sendTextMessage(QString::fromUtf8(rosbridge::protocol::encodeText(message)));
    if (!isBinary)
        return;
    const auto converted = ros_types::toCbor(*m_rules, m_types.value(topic),
                                             message.value(QLatin1String("msg")).toMap());
    if (!converted)
        return;
    QCborMap binary = message;
    binary.insert(QLatin1String("msg"), *converted);
    client->sendBinaryMessage(binary.toCborValue().toCbor());
}

void FakeRobot::latch(const QString& topic, const QCborMap& msg)
{
    m_latched.insert(topic, msg);
}

void FakeRobot::refuse(const QString& topic)
{
    m_refused.insert(topic);
}

int FakeRobot::subscriberCount(const QString& topic, const QString& type) const
{
    return int(std::count_if(m_subscriptions.cbegin(), m_subscriptions.cend(),
                             [&](const Subscription& subscription) {
                                 return subscription.topic == topic && subscription.type == type;
                             }));
}

void FakeRobot::drop()
{
    const QList<QWebSocket*> clients = m_clients;
    for (QWebSocket* client : clients)
        client->abort();
}

void FakeRobot::subscribe(const Subscription& subscription)
{
    const bool isFurther = std::any_of(
        m_subscriptions.cbegin(), m_subscriptions.cend(), [&](const Subscription& other) {
            return other.client == subscription.client && other.topic == subscription.topic;
        });
    const QString known = m_types.value(subscription.topic);
    const QString type = rosbridge::protocol::canonicalType(subscription.type);
    const bool isOtherType = !known.isEmpty() && !type.isEmpty() && type != known;
    if (m_refused.contains(subscription.topic) || isOtherType)
        send({{QStringLiteral("op"), QStringLiteral("status")},
              {QStringLiteral("level"), QStringLiteral("error")},
              {QStringLiteral("id"), subscription.id},
              {QStringLiteral("msg"), QStringLiteral("No topic ") + subscription.topic}});
    if (isOtherType)
        return;
    m_subscriptions.append(subscription);
    if (!isFurther && m_latched.contains(subscription.topic))
        publish(subscription.topic, m_latched.value(subscription.topic));
}

/// Something that a client advertises or publishes.
void FakeRobot::take(QWebSocket* client, const QCborMap& message)
{
    const QString topic = message.value(QLatin1String("topic")).toString();
    const QString why = objection(message);
    if (!why.isEmpty())
        client->sendTextMessage(QString::fromUtf8(rosbridge::protocol::encodeText(
            {{QStringLiteral("op"), QStringLiteral("status")},
             {QStringLiteral("level"), QStringLiteral("error")},
             {QStringLiteral("id"), message.value(QLatin1String("id"))},
             {QStringLiteral("msg"), why}})));
    else if (message.value(QLatin1String("op")) == QLatin1String("advertise"))
        m_advertisements.append(topic + ' ' + message.value(QLatin1String("type")).toString());
    else
        m_publications.append(topic + ' ' + json(message.value(QLatin1String("msg")).toMap()));
}

/// Why the message is not taken.
QString FakeRobot::objection(const QCborMap& message) const
{
    const QString topic = message.value(QLatin1String("topic")).toString();
    if (m_refused.contains(topic))
        return QStringLiteral("No topic ") + topic;
    const QString known = m_types.value(topic);
    if (!m_rules || known.isEmpty())
        return {};
    if (message.value(QLatin1String("op")) == QLatin1String("advertise")) {
        const QString type = message.value(QLatin1String("type")).toString();
        return rosbridge::protocol::canonicalType(type) == known
                   ? QString()
                   : QStringLiteral("%1 has the type %2, not %3").arg(topic, known, type);
    }
    const QString field = unknownField(message.value(QLatin1String("msg")).toMap(),
                                       ros_types::sample(*m_rules, known));
    return field.isEmpty()
               ? QString()
               : QStringLiteral("Message type %1 does not have a field %2").arg(known, field);
}

void FakeRobot::receive(QWebSocket* client, const QString& text)
{
    QString error;
    const auto message = rosbridge::protocol::decodeText(text.toUtf8(), &error);
    if (!message)
        qFatal("The fake robot does not understand %s: %s", qPrintable(text), qPrintable(error));
    const auto field = [&](const char* name) {
        return message->value(QLatin1String(name)).toString();
    };
    if (m_wantsAuthentication && field("op") != QLatin1String("auth")) {
        client->close();
        return;
    }
    if (field("op") == QLatin1String("subscribe")) {
        m_subscribeMessages.insert(field("topic"), *message);
        ++m_subscribeCounts[field("topic")];
        subscribe({client, field("id"), field("topic"), field("type"), field("compression")});
    }
    if (field("op") == QLatin1String("unsubscribe"))
        m_subscriptions.erase(std::remove_if(m_subscriptions.begin(), m_subscriptions.end(),
                                             [&](const Subscription& subscription) {
                                                 return subscription.client == client &&
                                                        subscription.id == field("id");
                                             }),
                              m_subscriptions.end());
    if (field("op") == QLatin1String("advertise") || field("op") == QLatin1String("publish"))
        take(client, *message);
    if (field("op") != QLatin1String("call_service"))
        return;
    const QString service = field("service");
    const QCborMap args = message->value(QLatin1String("args")).toMap();
    m_calls.append(service + QLatin1Char(' ') + json(args));
    if (m_ignored.contains(service)) {
        m_ignoredIds.insert(service, message->value(QLatin1String("id")));
        return;
    }
    const bool isKnown = m_answers.contains(service);
    const QCborMap response{
        {QStringLiteral("op"), QStringLiteral("service_response")},
        {QStringLiteral("id"), message->value(QLatin1String("id"))},
        {QStringLiteral("service"), service},
        {QStringLiteral("result"), isKnown},
        {QStringLiteral("values"),
         isKnown ? QCborValue(m_answers.value(service))
                 : QCborValue(QStringLiteral("Service %1 does not exist").arg(service))}};
    client->sendTextMessage(QString::fromUtf8(rosbridge::protocol::encodeText(response)));
}
