// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_CONNECTOR_H
#define ROSBRIDGE_WEBSOCKET_CONNECTOR_H

#include "rosbridge/websocket/Handshake.h"

#include <QAbstractSocket>
#include <QObject>
#include <QString>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace rosbridge::websocket {

class Socket;

/// One attempt to reach a WebSocket server. It waits as long as the network does: its owner has the
/// deadline.
class Connector : public QObject
{
    Q_OBJECT

public:
    enum class Failure
    {
        Refused,      ///< the host is there, nothing listens on the port
        NoHost,       ///< there is no host of this name
        Unreachable,  ///< no way to it
        NotWebSocket, ///< it was reached, and does not answer as a WebSocket server does
    };
    Q_ENUM(Failure)

    /// @p maximumBytes are those of a message from the server.
    explicit Connector(qint64 maximumBytes, QObject* parent = nullptr);

    void open(const QString& host, quint16 port);

    /// Gives up; nothing more is emitted.
    void abort();

    /// Whether the network's part is done, and the handshake is waited for.
    bool isReached() const { return m_isReached; }

Q_SIGNALS:
    /// @p socket is the receiver's.
    void connected(rosbridge::websocket::Socket* socket);

    /// Instead of connected(). @p why tells a person more about it, in a part of a sentence; empty
    /// where there is nothing to add.
    void failed(rosbridge::websocket::Connector::Failure failure, const QString& why);

private:
    void onReached();
    void onReadyRead();
    void onError(QAbstractSocket::SocketError error);
    void fail(Failure failure, const QString& why);
    static QString whyNot(const Handshake& answer);

    qint64 m_maximumBytes;
    QTcpSocket* m_tcp; // a child; null when it is the socket's
    QByteArray m_host;
    QByteArray m_key;
    bool m_isReached = false;
};

} // namespace rosbridge::websocket

#endif
