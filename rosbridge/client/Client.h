// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_CLIENT_CLIENT_H
#define ROSBRIDGE_CLIENT_CLIENT_H

#include "rosbridge/client/Inbox.h"
#include "rosbridge/protocol/Address.h"
#include "rosbridge/websocket/Connector.h"
#include "rosbridge/websocket/Socket.h"

#include <QCborMap>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace rosbridge::client {

/// The client end of the robot link: one WebSocket to a rosbridge v2 server, its service calls
/// and topics. It never reconnects and remembers nothing of a link that is closed; its owner
/// decides on both when it hears closed() and opened().
///
/// Lives on one thread and needs its event loop. It may be closed or deleted at any time, from
/// inside its own signals and callbacks too. Deleted, it says nothing more: what it still owed,
/// closed() and the answers to calls, is dropped.
class Client : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Closed,
        Connecting, ///< from the host's lookup to the end of the WebSocket handshake
        Open,
    };
    Q_ENUM(State)

    /// Why a link ended or did not come about.
    enum class Cause
    {
        Requested,     ///< close() or a further open()
        Refused,       ///< the host is there, nothing listens on the port
        Unreachable,   ///< no such host, or no way to it
        Silent,        ///< a connection was accepted, but the handshake not answered in time
        Lost,          ///< was open, then was closed by the other end, broke or fell silent
        Untrusted,     ///< the certificate of the other end cannot be verified
        ProtocolError, ///< the other end answers, but not as a rosbridge server does
    };
    Q_ENUM(Cause)

    struct Timeouts
    {
        std::chrono::milliseconds connect{5000};      ///< from open() to opened()
        std::chrono::milliseconds pingInterval{2000}; ///< between two signs of life asked for
        std::chrono::milliseconds pongDeadline{5000}; ///< from a ping to the first answer
    };

    using Result = Inbox::Result;
    using Callback = Inbox::Callback;
    using Handler = Inbox::Handler;

    enum class Compression
    {
        None, ///< JSON, where a float that is not finite arrives as null
        Cbor, ///< binary, with typed arrays
    };

    struct SubscribeOptions
    {
        std::chrono::milliseconds throttleRate{0}; ///< least time between two messages
        int queueLength = 0;                       ///< messages the server keeps meanwhile
        Compression compression = Compression::None;
    };

    explicit Client(QObject* parent = nullptr);
    explicit Client(const Timeouts& timeouts, QObject* parent = nullptr);
    ~Client() override;

    State state() const { return m_state; }

    /// Whom to believe from the next open() on, where the system does not; outlives the client.
    void setTrust(websocket::Trust* trust) { m_trust = trust; }

    /// Whether the server has said anything on this link; a server that wants authentication
    /// does not.
    bool hasHeard() const { return m_hasHeard; }

    /// Starts to connect; the outcome is opened() or closed(), later. A link or an attempt that
    /// there is already is closed first.
    virtual void open(const protocol::Address& address);

    /// Ends the link or the attempt at one at once: closed(Cause::Requested) is emitted before
    /// this returns, then calls without answer fail. Does nothing if already closed.
    void close();

    /// Calls a service. @p callback gets exactly one answer, never from inside this function:
    /// the server's, or a failure when @p timeout is over or the link is not open or ends.
    void callService(const QString& service, const QCborMap& args, const Callback& callback,
                     std::chrono::milliseconds timeout);

    /// Topics; @p type is the message's ROS type, "sensor_msgs/LaserScan". What the server
    /// finds wrong with them it says by statusReceived(), with the topic as the id. False, and
    /// nothing sent, if the link is not open.
    bool advertise(const QString& topic, const QString& type);
    bool publish(const QString& topic, const QCborMap& msg);
    bool unadvertise(const QString& topic);

    /// Asks for a topic's messages; each goes to @p handler until unsubscribe() or the link's
    /// end. With an empty @p type they are of the type that the server knows. The id that is
    /// returned is for unsubscribe(); empty if the link is not open.
    virtual QString subscribe(const QString& topic, const QString& type,
                              const SubscribeOptions& options, const Handler& handler);

    /// Does nothing with an id that is unknown or of a link that is closed.
    void unsubscribe(const QString& id);

Q_SIGNALS:
    void opened();

    /// Once for each open(). @p text says for the user what happened and what to try.
    void closed(rosbridge::client::Client::Cause cause, const QString& text);

    /// The server's "status": @p level is "info", "warning" or "error", as a rule. @p id is that of
    /// the subscription it is about, or the topic that was advertised or published, if any. A
    /// failed call has only its answer. Also this end's own word, an "error", on a message that is
    /// too large to be taken.
    void statusReceived(const QString& level, const QString& text, const QString& id);

    /// The server answered a ping, @p after it was sent: behind what was on its way before.
    void pongReceived(std::chrono::milliseconds after);

    /// A message was not understood and is ignored; @p text says why.
    void malformedReceived(const QString& text);

protected:
    // The steps of a link, in their order, for a client that takes one of them in another way. They
    // are called out of the event loop, and not for a link that was closed meanwhile.
    virtual void openSocket();
    virtual void onHandshake();
    virtual void onMessage(const QCborMap& message);
    /// The attempt to connect failed; @p why as Connector says it.
    void endConnecting(websocket::Connector::Failure failure, const QString& why);
    /// The other end is gone.
    void lose();

private:
    void onReadyRead();
    void onEnded(websocket::CloseCode code, const QString& reason);
    void onDeadline();
    void ping();
    void endOpen(websocket::CloseCode code, const QString& reason);
    void end(Cause cause, const QString& text);
    void releaseSocket();

    QString nextId(const QString& op);
    bool send(const QCborMap& message);
    void takeTurn();
    void receive(const websocket::Socket::Item& item);
    QString leftOutText(const websocket::Socket::Item& item) const;

    Timeouts m_timeouts;
    State m_state = State::Closed;
    protocol::Address m_address;
    websocket::Trust* m_trust = nullptr;
    bool m_hasHeard = false;
    websocket::Connector* m_connector = nullptr; // a child, while the state is not Closed
    websocket::Socket* m_socket = nullptr;       // a child, from the handshake on
    QTimer m_pingTimer;
    QTimer m_deadline;    // connecting: for the handshake; open: for the next sign of life
    QTimer m_nextTurn;    // to go on reading
    QElapsedTimer m_ping; // invalid unless a ping waits for its pong
    quint64 m_lastId = 0;
    Inbox m_inbox;
};

} // namespace rosbridge::client

#endif
