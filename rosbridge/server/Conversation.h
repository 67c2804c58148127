// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_CONVERSATION_H
#define ROSBRIDGE_SERVER_CONVERSATION_H

#include "rosbridge/server/EncodedMessage.h"
#include "rosbridge/server/Limits.h"
#include "rosbridge/server/Outbox.h"
#include "rosbridge/server/Peer.h"
#include "rosbridge/server/Subscription.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QSet>
#include <QString>

#include <functional>
#include <map>
#include <optional>

namespace rosbridge::server {

class Publication;
class Request;
class ServiceRegistry;
class TopicRegistry;

/// The rosbridge protocol with one client, without the socket: answers its operations and
/// remembers its subscriptions, what it advertised and which status messages it wants.
class Conversation
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::server::Conversation)

public:
    using Time = Subscription::Time;
    using Send = std::function<void(const EncodedMessage&, Outbox::Kind)>;

    /// How bad a status message is; a client gets those up to its own level.
    enum class Level
    {
        None,
        Error,
        Warning,
        Info,
    };

    /// The registries must outlive the conversation. @p send is called for every message to the
    /// client, from inside the functions below.
    Conversation(const Peer& peer, const TopicRegistry& topics, const ServiceRegistry& services,
                 const Limits& limits, Send send);

    /// Answers one message of the client. What a latched topic owes to a new subscription waits
    /// for sendDue().
    void handle(const QCborMap& message);

    /// Tells the client something outside of any operation, if its level lets it through.
    void tell(Level level, const QString& text);

    /// A topic has a new message; it is sent now, later or never, as the client asked for.
    void offer(const Publication& publication, Time now);

    /// Whether the client subscribed to @p topic, in its canonical form, under either name.
    bool isSubscribed(const QString& topic) const;

    /// Sends what waited for its time.
    void sendDue(Time now);

    /// When sendDue() has something to do; nothing while nothing waits.
    std::optional<Time> due() const;

private:
    void setLevel(Request& request);
    void advertise(Request& request);
    void unadvertise(Request& request);
    void publish(Request& request);
    void subscribe(Request& request);
    void unsubscribe(Request& request);
    void callService(Request& request);
    void refuseServiceResponse(Request& request);
    void ignoreStatus(Request& request);

    void sendDue(Subscription& subscription, Time now);
    void status(const Request& request, Level level, const QString& text);
    void sendStatus(Level level, const QString& text, const QCborValue& id);
    static QString unknownCompression(const QString& compression);
    int requestCount() const;

    Peer m_peer;
    const TopicRegistry& m_topics;
    const ServiceRegistry& m_services;
    Limits m_limits;
    Send m_send;
    Level m_level = Level::Error;
    std::map<QString, Subscription> m_subscriptions; // by the topic as the client wrote it
    QSet<QString> m_advertised;
};

} // namespace rosbridge::server

#endif
