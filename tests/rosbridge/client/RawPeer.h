// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_RAWPEER_H
#define ROBOT_LINK_TESTS_RAWPEER_H

#include "Peer.h"
#include "ServerIdentity.h"

#include <QCryptographicHash>
#include <QSslSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

/// A TCP server that does by hand what a WebSocket server does, as far as the test wants.
class RawPeer : public QTcpServer
{
public:
    /// With a @p certificate of tests/support/certificates it encrypts.
    explicit RawPeer(const QString& certificate = QString()) : m_certificate(certificate)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this,
                [this] { socket = nextPendingConnection(); });
    }

    rosbridge::protocol::Address address() const
    {
        return {serverAddress().toString(), serverPort(), !m_certificate.isEmpty(), {}};
    }

    /// Answers the handshake of the client that has come.
    void shakeHands()
    {
        QTRY_VERIFY_WITH_TIMEOUT(socket && socket->peek(4096).endsWith("\r\n\r\n"), patience);
        QByteArray key;
        while (socket->canReadLine()) {
            const QByteArray line = socket->readLine().trimmed();
            request += line;
            if (line.toLower().startsWith("sec-websocket-key:"))
                key = line.mid(line.indexOf(':') + 1).trimmed();
        }
        const QByteArray accept = QCryptographicHash::hash(
            key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11", QCryptographicHash::Sha1);
        socket->write("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
                      "Connection: Upgrade\r\nSec-WebSocket-Accept: " +
                      accept.toBase64() + "\r\n\r\n");
    }

    QTcpSocket* socket = nullptr;
    QList<QByteArray> request; // of the handshake that was answered, line by line

protected:
    void incomingConnection(qintptr descriptor) override
    {
        if (m_certificate.isEmpty())
            return QTcpServer::incomingConnection(descriptor);
        auto* const secure = new QSslSocket(this);
        secure->setSocketDescriptor(descriptor);
        secure->setSslConfiguration(serverIdentity(m_certificate));
        secure->startServerEncryption();
        addPendingConnection(secure);
    }

private:
    QString m_certificate;
};

#endif
