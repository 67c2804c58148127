#include "rosbridge/server/Endpoint.h"

#include "rosbridge/protocol/Address.h"
#include "rosbridge/server/ClientSession.h"
#include "rosbridge/server/Publication.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QHostAddress>
#include <QTimer>
#include <QWebSocket>
#include <QWebSocketCorsAuthenticator>

#include <algorithm>
#include <memory>
#include <utility>

namespace rosbridge::server {

Endpoint::Endpoint(TopicRegistry& topics, const ServiceRegistry& services, const Limits& limits,
                   QObject* parent)
    : QObject(parent),
      m_topics(topics),
      m_services(services),
      m_limits(limits),
      m_server(QStringLiteral("quandrel-robot"), QWebSocketServer::NonSecureMode)
{
    m_server.setHandshakeTimeout(limits.handshakeDeadline);
    connect(&m_server, &QWebSocketServer::newConnection, this, &Endpoint::admit);
    connect(&m_server, &QWebSocketServer::originAuthenticationRequired, this,
            &Endpoint::checkOrigin);
    connect(&m_server, &QWebSocketServer::acceptError, this, &Endpoint::resumeLater);
}

Endpoint::~Endpoint()
{
    close();
}

void Endpoint::setAllowedOrigins(const QStringList& origins)
{
    m_allowedOrigins = origins;
}

bool Endpoint::listen(const QHostAddress& address, quint16 port)
{
    return m_server.listen(address, port);
}

QString Endpoint::errorString() const
{
    return m_server.errorString();
}

quint16 Endpoint::port() const
{
    return m_server.serverPort();
}

void Endpoint::close()
{
    m_server.close();
    const QList<ClientSession*> sessions = m_sessions; // each takes itself off the list
    for (ClientSession* session : sessions)
        session->end(QWebSocketProtocol::CloseCodeGoingAway, tr("the robot shuts down"));
}

void Endpoint::publish(const QString& topic, const QCborMap& msg)
{
    const auto publication = std::make_shared<const Publication>(topic, msg);
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

void Endpoint::admit()
{
    while (QWebSocket* socket = m_server.nextPendingConnection()) {
        const protocol::Address from{socket->peerAddress().toString(), socket->peerPort()};
        const Peer peer{++m_lastId, tr("client %1 (%2)").arg(m_lastId).arg(from.toString())};
        auto* session = new ClientSession(peer, socket, m_topics, m_services, m_limits, this);
        connect(session, &ClientSession::closed, session, &QObject::deleteLater);
        if (m_sessions.size() >= m_limits.clients) {
            session->end(QWebSocketProtocol::CloseCodePolicyViolated,
                         tr("the robot serves at most %1 clients").arg(m_limits.clients));
            continue;
        }
        m_sessions.append(session);
        connect(session, &ClientSession::ended, this, [this, session](const QString& why) {
            m_sessions.removeOne(session);
            Q_EMIT left(session->peer(), why);
        });
        Q_EMIT joined(peer);
    }
}

void Endpoint::checkOrigin(QWebSocketCorsAuthenticator* authenticator)
{
    const QString origin = authenticator->origin();
    const bool isAllowed = origin.isEmpty() || m_allowedOrigins.contains(origin);
    authenticator->setAllowed(isAllowed);
    if (!isAllowed)
        Q_EMIT originRefused(origin);
}

void Endpoint::resumeLater()
{
    // Out of file descriptors, say: Qt then stops accepting, and leaves it to us to go on.
    constexpr std::chrono::seconds pause(1);
    QTimer::singleShot(pause, &m_server, [this] { m_server.resumeAccepting(); });
}

} // namespace rosbridge::server
