// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_LISTENER_H
#define ROSBRIDGE_WEBSOCKET_LISTENER_H

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QStringList>
#include <QTcpServer>

#include <chrono>
#include <memory>

namespace rosbridge::websocket {

class Socket;

/// Lets WebSocket clients in, as far as the handshake. It knows of a bounded number of connections
/// at a time; more wait outside until one of them is over.
class Listener : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        int connections = 32;    ///< before and after the handshake
        qint64 messageBytes = 0; ///< of a message from a client
        std::chrono::milliseconds handshakeDeadline{0};
    };

    explicit Listener(const Limits& limits, QObject* parent = nullptr);
    ~Listener() override;

    /// The Origins that may connect. A client that names none always may.
    void setAllowedOrigins(const QStringList& origins) { m_allowedOrigins = origins; }

    bool listen(const QHostAddress& address, quint16 port);
    QString errorString() const { return m_server.errorString(); }
    quint16 port() const { return m_server.serverPort(); }

    /// Connections whose handshake is not complete are cut.
    void close();

Q_SIGNALS:
    /// @p socket is the receiver's. @p from is where the client is.
    void connected(rosbridge::websocket::Socket* socket, const QHostAddress& address, quint16 port);

    void originRefused(const QString& origin);

    /// No connection can be accepted; tried again every second, and told at most once a minute.
    void acceptFailed();

private:
    void accept();
    void shakeHands(QTcpSocket* tcp);
    void answer(QTcpSocket* tcp);
    void refuse(QTcpSocket* tcp, const QByteArray& status);
    void leaveRoom();
    void retryLater();

    Limits m_limits;
    QStringList m_allowedOrigins;
    QTcpServer m_server;
    std::unique_ptr<QSocketNotifier> m_newcomers; // while listening
    QList<QTcpSocket*> m_greeting;                // children, in their handshake
    int m_connections = 0;
    QElapsedTimer m_sinceTold;
};

} // namespace rosbridge::websocket

#endif
