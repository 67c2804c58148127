// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_CONNECTOR_H
#define ROSBRIDGE_WEBSOCKET_CONNECTOR_H

#include "rosbridge/protocol/Address.h"
#include "rosbridge/websocket/Handshake.h"

#include <QAbstractSocket>
#include <QList>
#include <QObject>
#include <QString>

QT_BEGIN_NAMESPACE
class QSslError;
class QSslSocket;
class QTcpSocket;
QT_END_NAMESPACE

namespace rosbridge::websocket {

class Socket;
class Trust;

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
        NoTls,        ///< this computer cannot do it
        NotTls,       ///< the server was reached, and does not do it
        Untrusted,    ///< the server's certificate is not believed
        NeedsLogin,   ///< the server asks who this is
        Forbidden,    ///< the server lets others in
        NoSuchPath,   ///< the server has something else to offer
        Moved,        ///< the server names another place
    };
    Q_ENUM(Failure)

    /// @p maximumBytes are those of a message from the server. @p trust outlives the connector;
    /// null: only the system's.
    Connector(qint64 maximumBytes, Trust* trust, QObject* parent = nullptr);

    /// Once.
    void open(const protocol::Address& address);

    /// Gives up; nothing more is emitted.
    void abort();

    /// Whether the network's part is done, and the handshake is waited for.
    bool isReached() const { return m_isReached; }

Q_SIGNALS:
    /// @p socket is the receiver's.
    void connected(rosbridge::websocket::Socket* socket);

    /// Instead of connected(). @p why tells a person more about it, in a part of a sentence; empty
    /// where there is nothing to add. Untrusted: in sentences. What a server answers is in it as
    /// it is.
    void failed(rosbridge::websocket::Connector::Failure failure, const QString& why);

private:
    void openSecurely();
    void onReached();
    void onReadyRead();
    void onSslErrors(const QList<QSslError>& errors);
    void onError(QAbstractSocket::SocketError error);
    void onErrorReached(QAbstractSocket::SocketError error);
    void fail(Failure failure, const QString& why);
    void failAnswered(const Handshake& answer);

    qint64 m_maximumBytes;
    Trust* m_trust;
    QTcpSocket* m_tcp = nullptr; // a child, from open() until it is the socket's
    QSslSocket* m_ssl = nullptr; // the same, where the address is secure
    protocol::Address m_address;
    QByteArray m_key;
    QString m_objection; // to the server's certificate
    bool m_isReached = false;
};

} // namespace rosbridge::websocket

#endif
