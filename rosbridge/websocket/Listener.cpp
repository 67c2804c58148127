// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/Listener.h"

#include "rosbridge/websocket/Handshake.h"
#include "rosbridge/websocket/Socket.h"

#include <QTcpSocket>
#include <QTimer>

#include <cerrno>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

namespace rosbridge::websocket {

Listener::Listener(const Limits& limits, QObject* parent) : QObject(parent), m_limits(limits) {}

Listener::~Listener()
{
    close();
    const QList<QTcpSocket*> sockets = findChildren<QTcpSocket*>();
    for (QTcpSocket* tcp : sockets)
        tcp->disconnect(this);
}

bool Listener::listen(const QHostAddress& address, quint16 port)
{
    if (!m_server.listen(address, port))
        return false;
    // Qt 6.4 tries again and again, and says nothing, where a connection cannot be accepted.
    m_server.pauseAccepting();
    m_newcomers =
        std::make_unique<QSocketNotifier>(m_server.socketDescriptor(), QSocketNotifier::Read);
    connect(m_newcomers.get(), &QSocketNotifier::activated, this, &Listener::accept);
    return true;
}

void Listener::close()
{
    m_newcomers.reset();
    m_server.close();
    const QList<QTcpSocket*> greeting = m_greeting; // each takes itself off the list
    for (QTcpSocket* tcp : greeting)
        tcp->abort();
}

void Listener::accept()
{
    if (m_connections >= m_limits.connections) {
        m_newcomers->setEnabled(false); // until one leaves
        return;
    }
    const int descriptor = ::accept4(static_cast<int>(m_server.socketDescriptor()), nullptr,
                                     nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (descriptor < 0) {
        if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED)
            retryLater();
        return;
    }
    auto* const tcp = new QTcpSocket(this);
    ++m_connections;
    connect(tcp, &QObject::destroyed, this, &Listener::leaveRoom);
    if (tcp->setSocketDescriptor(descriptor)) {
        shakeHands(tcp);
    } else {
        ::close(descriptor);
        delete tcp;
    }
}

void Listener::shakeHands(QTcpSocket* tcp)
{
    m_greeting.append(tcp);
    tcp->setReadBufferSize(maximumHandshakeBytes);
    connect(tcp, &QTcpSocket::disconnected, this, [this, tcp] {
        m_greeting.removeOne(tcp);
        tcp->deleteLater();
    });
    connect(tcp, &QTcpSocket::readyRead, this, [this, tcp] { answer(tcp); });
    auto* const deadline = new QTimer(tcp);
    deadline->setSingleShot(true);
    connect(deadline, &QTimer::timeout, tcp, &QTcpSocket::abort);
    deadline->start(m_limits.handshakeDeadline);
    if (tcp->bytesAvailable() > 0)
        answer(tcp);
}

void Listener::answer(QTcpSocket* tcp)
{
    const std::optional<Handshake> request = readHandshake(*tcp);
    if (!request) {
        if (isHandshakeTooLong(*tcp))
            tcp->abort();
        return;
    }
    if (!isRequest(*request)) {
        refuse(tcp, "400 Bad Request");
        return;
    }
    const QString origin = QString::fromLatin1(request->headers.value("origin"));
    if (!origin.isEmpty() && !m_allowedOrigins.contains(origin)) {
        refuse(tcp, "403 Forbidden");
        Q_EMIT originRefused(origin);
        return;
    }
    tcp->disconnect(this);
    connect(tcp, &QObject::destroyed, this, &Listener::leaveRoom);
    m_greeting.removeOne(tcp);
    delete tcp->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); // its deadline
    tcp->write(agreement(*request));
    Q_EMIT connected(new Socket(tcp, Role::Server, m_limits.messageBytes), tcp->peerAddress(),
                     tcp->peerPort());
}

void Listener::refuse(QTcpSocket* tcp, const QByteArray& status)
{
    tcp->disconnect(SIGNAL(readyRead()));
    tcp->write(refusal(status));
    tcp->disconnectFromHost(); // at the deadline at the latest
}

void Listener::leaveRoom()
{
    --m_connections;
    if (m_newcomers)
        m_newcomers->setEnabled(true);
}

void Listener::retryLater()
{
    // Out of file descriptors, say: the connection goes on waiting.
    constexpr std::chrono::seconds pause(1);
    constexpr std::chrono::minutes quiet(1);
    m_newcomers->setEnabled(false);
    QTimer::singleShot(pause, m_newcomers.get(),
                       [newcomers = m_newcomers.get()] { newcomers->setEnabled(true); });
    if (m_sinceTold.isValid() && !m_sinceTold.hasExpired(std::chrono::milliseconds(quiet).count()))
        return;
    m_sinceTold.start();
    Q_EMIT acceptFailed();
}

} // namespace rosbridge::websocket
