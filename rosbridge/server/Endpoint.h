// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_ENDPOINT_H
#define ROSBRIDGE_SERVER_ENDPOINT_H

#include "rosbridge/server/Limits.h"
#include "rosbridge/server/Peer.h"
#include "rosbridge/websocket/Listener.h"

#include <QCborMap>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QHostAddress;
QT_END_NAMESPACE

namespace rosbridge::server {

class ClientSession;
class ServiceRegistry;
class TopicRegistry;

/// The robot's WebSocket server: lets clients in, as many as there may be and no browser page
/// that was not invited, answers them by turns, and hands every topic's messages to all of them.
class Endpoint : public QObject
{
    Q_OBJECT

public:
    /// The registries must outlive the endpoint.
    Endpoint(TopicRegistry& topics, const ServiceRegistry& services, const Limits& limits,
             QObject* parent = nullptr);
    ~Endpoint() override;

    /// The Origins, "http://host:port", of the pages that may connect. Programs other than
    /// browsers send no Origin and may always.
    void setAllowedOrigins(const QStringList& origins);

    /// False if the address cannot be listened on; errorString() says why.
    bool listen(const QHostAddress& address, quint16 port);
    QString errorString() const;

    /// The real one where 0 was asked for; 0 if not listening.
    quint16 port() const;

    /// Stops listening and takes leave of all clients.
    void close();

    /// Cheap where nobody subscribed. @p topic in its canonical form.
    void publish(const QString& topic, const QCborMap& msg);

    /// Whether anybody is connected.
    bool hasClients() const { return !m_sessions.isEmpty(); }

    /// Whether publish() would reach anybody now. @p topic in its canonical form.
    bool hasSubscribers(const QString& topic) const;

Q_SIGNALS:
    void joined(const rosbridge::server::Peer& peer);
    void left(const rosbridge::server::Peer& peer, const QString& why);
    void originRefused(const QString& origin);

    /// Nobody can be let in for now, for want of file descriptors or memory; told at most once a
    /// minute.
    void acceptFailed();

private:
    void admit(websocket::Socket* socket, const QHostAddress& address, quint16 port);
    void queue(ClientSession* session);
    void takeTurns();

    TopicRegistry& m_topics;
    const ServiceRegistry& m_services;
    Limits m_limits;
    websocket::Listener m_listener;
    QList<ClientSession*> m_sessions; // children
    QList<ClientSession*> m_queue;    // of m_sessions, those with something to answer
    QTimer m_turn;
    quint64 m_lastId = 0;
};

} // namespace rosbridge::server

#endif
