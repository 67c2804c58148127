// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_PEER_H
#define ROBOT_LINK_TESTS_PEER_H

#include "Patience.h"

#include "rosbridge/client/Client.h"
#include "rosbridge/protocol/Codec.h"

#include <QVector>
#include <QWebSocket>
#include <QWebSocketServer>

#include <memory>

/// Timeouts that nothing runs into, for tests of something else.
inline rosbridge::client::Client::Timeouts noHurry()
{
    using namespace std::chrono_literals;
    return {30s, 2s, 30s};
}

/// A WebSocket server on a free port: it keeps what it receives and sends what the test says.
class Peer : public QObject
{
    Q_OBJECT

public:
    Peer() : m_server(QStringLiteral("peer"), QWebSocketServer::NonSecureMode)
    {
        m_server.listen(QHostAddress::LocalHost);
        connect(&m_server, &QWebSocketServer::newConnection, this, [this] {
            m_socket.reset(m_server.nextPendingConnection());
            connect(m_socket.get(), &QWebSocket::textMessageReceived, this,
                    [this](const QString& text) {
                        QString error;
                        const auto message = rosbridge::protocol::decodeText(text.toUtf8(), &error);
                        m_received.append(message.value_or(QCborMap()));
                        Q_EMIT received();
                    });
        });
    }

    rosbridge::protocol::Address address() const
    {
        return {m_server.serverAddress().toString(), m_server.serverPort()};
    }

    /// The last client that came; null before the first.
    QWebSocket* socket() const { return m_socket.get(); }

    /// What came from all clients; a message that could not be read is empty.
    const QVector<QCborMap>& messages() const { return m_received; }

    void send(const QCborMap& message) { sendText(rosbridge::protocol::encodeText(message)); }

    void sendText(const QByteArray& text) { m_socket->sendTextMessage(QString::fromUtf8(text)); }

    void sendBinary(const QByteArray& data) { m_socket->sendBinaryMessage(data); }

Q_SIGNALS:
    void received();

private:
    struct DeleteLater
    {
        void operator()(QWebSocket* socket) const { socket->deleteLater(); }
    };

    QWebSocketServer m_server;
    std::unique_ptr<QWebSocket, DeleteLater> m_socket;
    QVector<QCborMap> m_received;
};

#endif
