// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/Connector.h"

#include "rosbridge/protocol/Address.h"
#include "rosbridge/websocket/Socket.h"

#include <QTcpSocket>

#include <optional>
#include <utility>

namespace rosbridge::websocket {

Connector::Connector(qint64 maximumBytes, QObject* parent)
    : QObject(parent),
      m_maximumBytes(maximumBytes),
      m_tcp(new QTcpSocket(this)),
      m_key(randomKey())
{
    m_tcp->setReadBufferSize(maximumHandshakeBytes);
    connect(m_tcp, &QTcpSocket::connected, this, &Connector::onReached);
    connect(m_tcp, &QTcpSocket::readyRead, this, &Connector::onReadyRead);
    connect(m_tcp, &QTcpSocket::errorOccurred, this, &Connector::onError);
}

void Connector::open(const QString& host, quint16 port)
{
    m_host = protocol::Address{host, port}.toString().toLatin1();
    m_tcp->connectToHost(host, port);
}

void Connector::abort()
{
    if (!m_tcp)
        return;
    m_tcp->disconnect(this);
    m_tcp->abort();
}

void Connector::onReached()
{
    m_isReached = true;
    m_tcp->write(request(m_host, m_key));
}

void Connector::onReadyRead()
{
    const std::optional<Handshake> answer = readHandshake(*m_tcp);
    if (!answer) {
        if (isHandshakeTooLong(*m_tcp))
            fail(Failure::NotWebSocket, tr("its answer does not end"));
        return;
    }
    if (!isAgreement(*answer, m_key)) {
        fail(Failure::NotWebSocket, whyNot(*answer));
        return;
    }
    m_tcp->disconnect(this);
    Q_EMIT connected(new Socket(std::exchange(m_tcp, nullptr), Role::Client, m_maximumBytes));
}

void Connector::onError(QAbstractSocket::SocketError error)
{
    if (m_isReached) {
        fail(Failure::NotWebSocket, tr("it closed the connection without an answer"));
        return;
    }
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        fail(Failure::Refused, QString());
        break;
    case QAbstractSocket::HostNotFoundError:
        fail(Failure::NoHost, QString());
        break;
    case QAbstractSocket::NetworkError:
        fail(Failure::Unreachable, tr("there is no route to it"));
        break;
    case QAbstractSocket::SocketTimeoutError:
        fail(Failure::Unreachable, tr("it does not answer"));
        break;
    case QAbstractSocket::SocketAccessError:
        fail(Failure::Unreachable, tr("this computer does not allow the connection"));
        break;
    case QAbstractSocket::SocketResourceError:
        fail(Failure::Unreachable, tr("this computer has too many connections open"));
        break;
    default:
        fail(Failure::Unreachable, tr("the connection failed"));
    }
}

void Connector::fail(Failure failure, const QString& why)
{
    abort();
    Q_EMIT failed(failure, why);
}

QString Connector::whyNot(const Handshake& answer)
{
    constexpr int longestStatus = 80;
    if (!answer.firstLine.startsWith("HTTP/"))
        return tr("it does not speak HTTP");
    const QByteArray status = answer.firstLine.mid(answer.firstLine.indexOf(' ') + 1);
    if (status.startsWith("101"))
        return tr("its handshake does not follow WebSocket");
    return tr("it answers \"%1\"").arg(QString::fromLatin1(status.left(longestStatus)));
}

} // namespace rosbridge::websocket
