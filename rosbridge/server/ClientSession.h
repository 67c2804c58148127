// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_CLIENTSESSION_H
#define ROSBRIDGE_SERVER_CLIENTSESSION_H

#include "rosbridge/server/Conversation.h"
#include "rosbridge/server/Limits.h"
#include "rosbridge/server/Outbox.h"
#include "rosbridge/server/Peer.h"
#include "rosbridge/server/RateLimit.h"
#include "rosbridge/websocket/Socket.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace rosbridge::server {

class Publication;
class ServiceRegistry;
class TopicRegistry;

/// The socket of one client: what comes in, bounded, goes to its conversation; what the
/// conversation says goes out as fast as the client reads. Notices when the peer is lost.
class ClientSession : public QObject
{
    Q_OBJECT

public:
    /// Takes @p socket over. The registries must outlive the session.
    ClientSession(const Peer& peer, websocket::Socket* socket, const TopicRegistry& topics,
                  const ServiceRegistry& services, const Limits& limits, QObject* parent);

    const Peer& peer() const { return m_peer; }

    void offer(const Publication& publication);

    /// @p topic in its canonical form.
    bool isSubscribed(const QString& topic) const { return m_conversation.isSubscribed(topic); }

    /// Tells the client why, as an error and in the close frame, and closes the connection.
    void end(websocket::CloseCode code, const QString& reason);

    /// Answers the next message of the client that has come; false if there is none.
    bool answerNext();

Q_SIGNALS:
    /// Something has come for answerNext(); the endpoint decides whose turn it is.
    void readyRead();
    /// Once, when nothing more is read from the client; @p why is for the log.
    void ended(const QString& why);
    /// Once, after ended(): the socket is gone and the session may be deleted.
    void closed();

private:
    void answer(const websocket::Socket::Item& item);
    bool isWithinRate(const websocket::Socket::Item& item);
    void send(const EncodedMessage& frame, Outbox::Kind kind);
    void drain();
    void sendDue();
    void planSendDue();
    void checkPeer();
    void onEnded(websocket::CloseCode code, const QString& reason);
    void write(const EncodedMessage& frame);
    void cutOff(const QString& why);
    void finish(const QString& why);
    std::chrono::milliseconds now() const;

    Peer m_peer;
    websocket::Socket* m_socket; // a child
    Limits m_limits;
    Outbox m_outbox;
    Conversation m_conversation;
    RateLimit m_rate;
    RateLimit m_byteRate;
    QElapsedTimer m_time;
    std::chrono::milliseconds m_heard{0};
    QTimer m_dueTimer;
    QTimer m_pingTimer;
    bool m_isBehind = false; // messages of topics were dropped since it last caught up
    bool m_isEnded = false;
};

} // namespace rosbridge::server

#endif
