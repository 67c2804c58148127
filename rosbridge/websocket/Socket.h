// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_SOCKET_H
#define ROSBRIDGE_WEBSOCKET_SOCKET_H

#include "rosbridge/websocket/FrameReader.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace rosbridge::websocket {

/// One end of a WebSocket that is open. Its owner fetches what came, at its own pace: what is not
/// fetched stays with the peer, but for a bounded rest.
class Socket : public QObject
{
    Q_OBJECT

public:
    using Item = FrameReader::Item;

    /// Takes @p tcp over, right after the handshake. @p role is this end; @p maximumBytes are
    /// those of a message from the peer, see FrameReader.
    Socket(QTcpSocket* tcp, Role role, qint64 maximumBytes, QObject* parent = nullptr);
    ~Socket() override;

    /// For a peer to take its close frame; 1 s to begin with. It starts anew when the peer still
    /// sends what was under way, ten times at the most and no more than a message and 4 MB.
    void setCloseDeadline(std::chrono::milliseconds deadline) { m_closeDeadline = deadline; }

    /// The next of what has come: a message, or a ping or a pong, for which nothing is left to do.
    /// Nothing if no more has come, or the socket is not open any more.
    std::optional<Item> take();

    /// A text or binary message; does nothing if the socket is not open any more.
    void send(Opcode opcode, const QByteArray& data);

    /// Asks the peer for a pong, unless there is still something to write: then it would come late.
    /// Returns whether it did.
    bool ping();

    /// Written by the owner and not yet taken by the network.
    qint64 bytesToWrite() const;

    /// Tells the peer, and drops what still comes of it until it closes the connection too, or the
    /// deadline is over: a connection cut before would take the close frame with it.
    void close(CloseCode code, const QString& reason);

    /// Cuts the connection without a word. closed() is emitted from inside this.
    void abort();

Q_SIGNALS:
    /// Bytes have come; take() may have something.
    void readyRead();

    void bytesWritten();

    /// Once, and not after close() or abort(): the peer closed the connection, broke it or the
    /// rules. @p reason is what a peer that closed says, or which rule it was.
    void ended(rosbridge::websocket::CloseCode code, const QString& reason);

    /// Once, as the last: there is no connection any more.
    void closed();

private:
    enum class State
    {
        Open,
        Closing, ///< a close frame was sent
        Closed,
    };

    void onReadyRead();
    void onBytesWritten(qint64 bytes);
    void onDisconnected();
    void finish();
    void onCloseFrame(const QByteArray& payload);
    void onFault(const FrameReader::Fault& fault);
    void answerPing(const QByteArray& payload);
    void write(Opcode opcode, const QByteArray& payload);
    void startLeaving();
    void leave(CloseCode code, const QString& reason);

    QTcpSocket* m_tcp; // a child
    Role m_role;
    FrameReader m_reader;
    State m_state = State::Open;
    std::chrono::milliseconds m_closeDeadline{1000};
    QTimer m_closeTimer;
    QElapsedTimer m_sinceClose;
    qint64 m_underWay;                    // that the peer may still send after the close
    qint64 m_pongLeft = 0;                // to write until the last pong is out
    std::optional<QByteArray> m_nextPong; // answers the last ping that came meanwhile
};

} // namespace rosbridge::websocket

Q_DECLARE_METATYPE(rosbridge::websocket::CloseCode)

#endif
