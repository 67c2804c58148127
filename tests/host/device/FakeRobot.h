// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_FAKEROBOT_H
#define HOST_DEVICE_TESTS_FAKEROBOT_H

#include "RosTypes.h"

#include <QCborMap>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QWebSocketServer>

#include <optional>

class QWebSocket;

/// A robot that has just the services that a test gives it. All others it does not know.
class FakeRobot : public QObject
{
    Q_OBJECT

public:
    /// Listens on @p port of this computer, 0 for any free one.
    explicit FakeRobot(quint16 port = 0);
    /// Encrypts, and shows the certificate tests/support/certificates/@p certificate.
    explicit FakeRobot(const QString& certificate, quint16 port = 0);
    ~FakeRobot() override;

    QString address() const;

    /// A call of @p service is answered with @p values.
    void answer(const QString& service, const QCborMap& values);
    /// The same for a std_srvs/Trigger.
    void answerTrigger(const QString& service, bool success, const QString& message = {});
    /// All that the device asks of its robot is done: it is controlled, set and switched.
    void obey();
    /// A call of @p service is not answered.
    void ignore(const QString& service);
    /// Answers the last call of @p service that was ignored, after all.
    void answerLate(const QString& service, const QCborMap& values);

    /// "/service {arguments as JSON}", in order.
    QStringList calls() const { return m_calls; }

    /// "/topic type" of each advertisement, and "/topic {message as JSON}" of each message that
    /// clients published and that was not refused, in order.
    QStringList advertisements() const { return m_advertisements; }
    QStringList publications() const { return m_publications; }

    int clientCount() const { return int(m_clients.size()); }

    /// From now on publish() does as a rosbridge server of @p ros: who subscribed gets a message in
    /// CBOR if one of its subscriptions to the topic asks for that, and nothing where the message
    /// cannot be converted. @p types are those of its topics, as ROS 1 writes them: a subscription
    /// or an advertisement of another type is refused, a message with a field that the type does
    /// not have as well, and rosapi lists them.
    void obeyRules(ros_types::Ros ros, const QMap<QString, QString>& types);

    /// To every client, subscribed or not.
    void send(const QCborMap& message);
    void publish(const QString& topic, const QCborMap& msg);
    void log(const QString& name, const QString& text);
    /// A client is told @p msg when it subscribes to @p topic, but not again for a further id.
    void latch(const QString& topic, const QCborMap& msg);
    /// A subscription to @p topic, and what is published on it, is answered by an error, as of a
    /// robot that has no such topic.
    void refuse(const QString& topic);
    /// How many subscriptions to @p topic with @p type there were and were not ended by
    /// unsubscribing.
    int subscriberCount(const QString& topic, const QString& type) const;
    /// All subscribe messages for @p topic so far.
    int subscribeCount(const QString& topic) const { return m_subscribeCounts.value(topic); }
    /// The newest subscribe message for @p topic, as it came.
    QCborMap lastSubscription(const QString& topic) const
    {
        return m_subscribeMessages.value(topic);
    }
    /// Breaks all links, without a good-bye.
    void drop();
    /// From now on any message but "auth" closes the link, without a word: rosbridge's way for a
    /// client that does not authenticate.
    void demandAuthentication() { m_wantsAuthentication = true; }

private:
    struct Subscription
    {
        QWebSocket* client; // may be gone
        QString id;
        QString topic;
        QString type;
        QString compression;
    };

    FakeRobot(QWebSocketServer::SslMode mode, const QString& certificate, quint16 port);
    void receive(QWebSocket* client, const QString& text);
    void publishByRules(QWebSocket* client, const QCborMap& message);
    void subscribe(const Subscription& subscription);
    void take(QWebSocket* client, const QCborMap& message);
    QString objection(const QCborMap& message) const;

    QWebSocketServer m_server;
    bool m_wantsAuthentication = false;
    QList<QWebSocket*> m_clients;
    QHash<QString, QCborMap> m_answers;
    QSet<QString> m_ignored;
    QHash<QString, QCborValue> m_ignoredIds; // of the last call of each service
    QStringList m_calls;
    QStringList m_advertisements;
    QStringList m_publications;
    QHash<QString, QCborMap> m_latched;
    QSet<QString> m_refused;
    QList<Subscription> m_subscriptions;
    QHash<QString, QCborMap> m_subscribeMessages;
    QHash<QString, int> m_subscribeCounts;
    std::optional<ros_types::Ros> m_rules;
    QMap<QString, QString> m_types; // with rules: of all topics
};

#endif
