// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/Endpoint.h"

#include "rosbridge/protocol/Address.h"
#include "rosbridge/server/ClientSession.h"
#include "rosbridge/server/Publication.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QElapsedTimer>
#include <QHostAddress>

#include <algorithm>
#include <memory>

namespace rosbridge::server {

namespace {

// How long clients are answered before the robot itself has its turn.
constexpr qint64 turnMilliseconds = 5;

// Beside the clients there are those who do not know yet that they are too many, who are still in
// their handshake and who take their leave.
constexpr int furtherConnections = 16;

} // namespace

Endpoint::Endpoint(TopicRegistry& topics, const ServiceRegistry& services, const Limits& limits,
                   QObject* parent)
    : QObject(parent),
      m_topics(topics),
      m_services(services),
      m_limits(limits),
      m_listener(
          {limits.clients + furtherConnections, limits.messageBytes, limits.handshakeDeadline})
{
    connect(&m_listener, &websocket::Listener::connected, this, &Endpoint::admit);
    connect(&m_listener, &websocket::Listener::originRefused, this, &Endpoint::originRefused);
    connect(&m_listener, &websocket::Listener::acceptFailed, this, &Endpoint::acceptFailed);
    connect(&m_turn, &QTimer::timeout, this, &Endpoint::takeTurns);
}

Endpoint::~Endpoint()
{
    close();
}

void Endpoint::setAllowedOrigins(const QStringList& origins)
{
    m_listener.setAllowedOrigins(origins);
}

bool Endpoint::listen(const QHostAddress& address, quint16 port)
{
    return m_listener.listen(address, port);
}

QString Endpoint::errorString() const
{
    return m_listener.errorString();
}

quint16 Endpoint::port() const
{
    return m_listener.port();
}

void Endpoint::close()
{
    m_listener.close();
    const QList<ClientSession*> sessions = m_sessions; // each takes itself off the list
    for (ClientSession* session : sessions)
        session->end(websocket::CloseCode::GoingAway, tr("the robot shuts down"));
}

void Endpoint::publish(const QString& topic, const QCborMap& msg)
{
    const auto publication = m_topics.publication(topic, msg);
    m_topics.keep(publication);
    const QList<ClientSession*> sessions = m_sessions; // a lost client takes itself off the list
    for (ClientSession* session : sessions)
        session->offer(*publication);
}

bool Endpoint::hasSubscribers(const QString& topic) const
{
    return std::any_of(
        m_sessions.cbegin(), m_sessions.cend(),
        [&topic](const ClientSession* session) { return session->isSubscribed(topic); });
}

void Endpoint::admit(websocket::Socket* socket, const QHostAddress& address, quint16 port)
{
    const protocol::Address from{address.toString(), port};
    const Peer peer{++m_lastId, tr("client %1 (%2)").arg(m_lastId).arg(from.toString())};
    auto* session = new ClientSession(peer, socket, m_topics, m_services, m_limits, this);
    connect(session, &ClientSession::closed, session, &QObject::deleteLater);
    if (m_sessions.size() >= m_limits.clients) {
        session->end(websocket::CloseCode::PolicyViolated,
                     tr("the robot serves at most %1 clients").arg(m_limits.clients));
        return;
    }
    m_sessions.append(session);
    connect(session, &ClientSession::readyRead, this, [this, session] { queue(session); });
    connect(session, &ClientSession::ended, this, [this, session](const QString& why) {
        m_sessions.removeOne(session);
        m_queue.removeOne(session);
        Q_EMIT left(session->peer(), why);
    });
    Q_EMIT joined(peer);
    queue(session); // for what came right behind the handshake
}

void Endpoint::queue(ClientSession* session)
{
    if (m_sessions.contains(session) && !m_queue.contains(session))
        m_queue.append(session);
    if (!m_queue.isEmpty() && !m_turn.isActive())
        m_turn.start(0);
}

void Endpoint::takeTurns()
{
    QElapsedTimer time;
    time.start();
    while (!m_queue.isEmpty() && time.elapsed() < turnMilliseconds) {
        ClientSession* const session = m_queue.takeFirst();
        if (session->answerNext())
            queue(session);
    }
    if (m_queue.isEmpty())
        m_turn.stop();
}

} // namespace rosbridge::server
