// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/client/Client.h"

#include "rosbridge/client/FailureText.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Codec.h"
#include "rosbridge/websocket/Socket.h"

#include <QPointer>
#include <QSignalBlocker>

#include <utility>

namespace rosbridge::client {

using websocket::CloseCode;
using websocket::Connector;
using websocket::Opcode;
using websocket::Socket;

namespace {

// How long messages may be read before others have their turn, the window among them.
constexpr qint64 turnMilliseconds = 10;

QString seconds(std::chrono::milliseconds time)
{
    return QString::number(std::chrono::duration<double>(time).count());
}

} // namespace

Client::Client(QObject* parent) : Client(Timeouts(), parent) {}

Client::Client(const Timeouts& timeouts, QObject* parent) : QObject(parent), m_timeouts(timeouts)
{
    m_pingTimer.setInterval(m_timeouts.pingInterval);
    m_deadline.setSingleShot(true);
    connect(&m_pingTimer, &QTimer::timeout, this, &Client::ping);
    m_nextTurn.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, &Client::onDeadline);
    connect(&m_nextTurn, &QTimer::timeout, this, &Client::takeTurn);
    connect(&m_inbox, &Inbox::statusReceived, this, &Client::statusReceived);
    connect(&m_inbox, &Inbox::malformedReceived, this, &Client::malformedReceived);
}

Client::~Client()
{
    const QSignalBlocker silence(this);
    m_inbox.clear();
    close();
}

void Client::open(const protocol::Address& address)
{
    const QPointer<Client> alive(this);
    close();
    if (!alive || m_state != State::Closed)
        return; // closed() made the owner decide otherwise

    m_state = State::Connecting;
    m_address = address;
    m_deadline.start(m_timeouts.connect);

    m_connector = new Connector(protocol::maximumMessageSize, m_trust, this);
    connect(m_connector, &Connector::failed, this, &Client::endConnecting);
    connect(m_connector, &Connector::connected, this, [this](Socket* socket) {
        m_socket = socket;
        m_socket->setParent(this);
        connect(m_socket, &Socket::ended, this, &Client::onEnded);
        connect(m_socket, &Socket::readyRead, this, &Client::onReadyRead);
        onHandshake();
    });

    // A port on this machine may refuse at once; closed() shall not come from inside open().
    const auto connectSocket = [this, connector = m_connector] {
        if (connector == m_connector) // and not closed meanwhile
            openSocket();
    };
    QMetaObject::invokeMethod(this, connectSocket, Qt::QueuedConnection);
}

void Client::openSocket()
{
    m_connector->open(m_address);
}

void Client::close()
{
    if (m_state == State::Closed)
        return;
    if (m_state == State::Open) {
        m_socket->disconnect(this);
        // Says good-bye, so that the server need not wait for our silence.
        m_socket->close(CloseCode::Normal, QString());
    }
    end(Cause::Requested, tr("The link to %1 was closed on request.").arg(m_address.toString()));
}

void Client::callService(const QString& service, const QCborMap& args, const Callback& callback,
                         std::chrono::milliseconds timeout)
{
    const QString id = nextId(QStringLiteral("call_service"));
    const bool isSent = send({{QStringLiteral("op"), QStringLiteral("call_service")},
                              {QStringLiteral("id"), id},
                              {QStringLiteral("service"), protocol::canonicalName(service)},
                              {QStringLiteral("args"), args}});
    if (!isSent) {
        const Result result{
            false, {}, tr("The service %1 was not called: there is no link.").arg(service)};
        QMetaObject::invokeMethod(
            this, [callback, result] { callback(result); }, Qt::QueuedConnection);
        return;
    }
    m_inbox.addCall(id, {service, callback});
    QTimer::singleShot(timeout, this, [this, id, service, timeout] {
        const QString error = tr("The service %1 did not answer within %2 s.");
        m_inbox.answer(id, {false, {}, error.arg(service, seconds(timeout))});
    });
}

bool Client::advertise(const QString& topic, const QString& type)
{
    const QString name = protocol::canonicalName(topic);
    return send({{QStringLiteral("op"), QStringLiteral("advertise")},
                 {QStringLiteral("id"), name},
                 {QStringLiteral("topic"), name},
                 {QStringLiteral("type"), type}});
}

bool Client::publish(const QString& topic, const QCborMap& msg)
{
    const QString name = protocol::canonicalName(topic);
    return send({{QStringLiteral("op"), QStringLiteral("publish")},
                 {QStringLiteral("id"), name},
                 {QStringLiteral("topic"), name},
                 {QStringLiteral("msg"), msg}});
}

bool Client::unadvertise(const QString& topic)
{
    return send({{QStringLiteral("op"), QStringLiteral("unadvertise")},
                 {QStringLiteral("topic"), protocol::canonicalName(topic)}});
}

QString Client::subscribe(const QString& topic, const QString& type,
                          const SubscribeOptions& options, const Handler& handler)
{
    QString id = nextId(QStringLiteral("subscribe"));
    const bool isBinary = options.compression == Compression::Cbor;
    QCborMap request{{QStringLiteral("op"), QStringLiteral("subscribe")},
                     {QStringLiteral("id"), id},
                     {QStringLiteral("topic"), protocol::canonicalName(topic)},
                     {QStringLiteral("throttle_rate"), qint64(options.throttleRate.count())},
                     {QStringLiteral("queue_length"), options.queueLength},
                     {QStringLiteral("compression"),
                      isBinary ? QStringLiteral("cbor") : QStringLiteral("none")}};
    if (!type.isEmpty())
        request.insert(QStringLiteral("type"), type);
    if (!send(request))
        return QString();
    m_inbox.addSubscription(id, protocol::canonicalName(topic), handler);
    return id;
}

void Client::unsubscribe(const QString& id)
{
    const QString topic = m_inbox.removeSubscription(id);
    if (topic.isEmpty())
        return;
    send({{QStringLiteral("op"), QStringLiteral("unsubscribe")},
          {QStringLiteral("id"), id},
          {QStringLiteral("topic"), topic}});
}

void Client::onHandshake()
{
    m_deadline.stop();
    m_pingTimer.start();
    m_state = State::Open;
    m_hasHeard = false;
    const QPointer<Client> alive(this);
    const QPointer<Socket> socket(m_socket);
    Q_EMIT opened();
    if (alive && socket && socket == m_socket)
        takeTurn(); // what came right behind the handshake
}

void Client::onReadyRead()
{
    if (m_state != State::Open)
        return;
    m_deadline.stop(); // whatever comes is a sign of life, also a part of a large message
    takeTurn();
}

void Client::onEnded(CloseCode code, const QString& reason)
{
    if (m_state == State::Open)
        endOpen(code, reason);
    else
        endConnecting(Connector::Failure::NotWebSocket, tr("it closed the connection at once"));
}

void Client::onDeadline()
{
    const QString address = m_address.toString();
    if (m_state == State::Open)
        end(Cause::Lost, tr("The link to %1 is lost: the robot has not answered for %2 s. Check "
                            "the network and whether the robot is switched on.")
                             .arg(address, seconds(m_timeouts.pongDeadline)));
    else if (m_connector->isReached())
        end(Cause::Silent, tr("%1 accepts a connection but has not answered for %2 s. Check "
                              "whether the port is the robot's, or restart the robot's program.")
                               .arg(address, seconds(m_timeouts.connect)));
    else
        end(Cause::Unreachable, tr("%1 has not answered for %2 s. Check the address, the network "
                                   "and whether the robot is switched on.")
                                    .arg(address, seconds(m_timeouts.connect)));
}

void Client::ping()
{
    if (!m_deadline.isActive())
        m_deadline.start(m_timeouts.pongDeadline);
    // One at a time, as a pong does not tell which ping it answers.
    if (!m_ping.isValid() && m_socket->ping())
        m_ping.start();
}

void Client::endConnecting(Connector::Failure failure, const QString& why)
{
    Cause cause = Cause::ProtocolError;
    switch (failure) {
    case Connector::Failure::Refused:
        cause = Cause::Refused;
        break;
    case Connector::Failure::NoHost:
    case Connector::Failure::Unreachable:
    case Connector::Failure::NoTls:
        cause = Cause::Unreachable;
        break;
    case Connector::Failure::Untrusted:
        cause = Cause::Untrusted;
        break;
    default:
        break;
    }
    end(cause, FailureText::of(failure, m_address, why));
}

void Client::endOpen(CloseCode code, const QString& reason)
{
    const QString address = m_address.toString();
    switch (code) {
    case CloseCode::ProtocolError:
    case CloseCode::WrongDatatype:
    case CloseCode::NotUtf8:
    case CloseCode::TooLarge:
        end(Cause::ProtocolError, tr("The link to %1 was closed, as one end did not understand the "
                                     "other: %2. Check whether both have the same version.")
                                      .arg(address, reason));
        break;
    default:
        if (!reason.isEmpty())
            end(Cause::Lost, tr("%1 closed the link: %2.").arg(address, reason));
        else if (!m_hasHeard && (code == CloseCode::NoStatus || code == CloseCode::Normal ||
                                 code == CloseCode::PolicyViolated))
            end(Cause::Lost, tr("%1 closed the link without an answer. Its rosbridge may want "
                                "authentication (the operation \"auth\"). This program cannot log "
                                "in: switch the authentication off on the robot.")
                                 .arg(address));
        else
            lose();
    }
}

void Client::lose()
{
    end(Cause::Lost, tr("The link to %1 is lost: the robot closed it or cannot be reached any "
                        "more. Check the network and whether the robot's program is running.")
                         .arg(m_address.toString()));
}

/// The way out of every state; "this" may be gone when it returns.
void Client::end(Cause cause, const QString& text)
{
    m_pingTimer.stop();
    m_ping.invalidate();
    m_deadline.stop();
    releaseSocket();
    const QHash<QString, Inbox::PendingCall> calls = m_inbox.clear();
    m_state = State::Closed;

    const QPointer<Client> alive(this);
    Q_EMIT closed(cause, text);
    for (const Inbox::PendingCall& call : calls) {
        if (!alive)
            return;
        const QString error = tr("The service %1 did not answer: %2").arg(call.service, text);
        call.callback({false, {}, error});
    }
}

/// Nothing is heard of the socket after this. It is deleted later, as we may be called from
/// inside one of its signals.
void Client::releaseSocket()
{
    m_nextTurn.stop();
    if (Connector* const connector = std::exchange(m_connector, nullptr)) {
        connector->disconnect(this);
        connector->setParent(nullptr);
        connector->abort();
        connector->deleteLater();
    }
    Socket* const socket = std::exchange(m_socket, nullptr);
    if (!socket)
        return;
    socket->disconnect(this);
    socket->setParent(nullptr);
    socket->abort();
    socket->deleteLater();
}

QString Client::nextId(const QString& op)
{
    return QStringLiteral("%1:%2").arg(op).arg(++m_lastId);
}

bool Client::send(const QCborMap& message)
{
    if (m_state != State::Open)
        return false;
    m_socket->send(Opcode::Text, protocol::encodeText(message));
    return true;
}

/// Handles what has come, as much as there is time for.
void Client::takeTurn()
{
    QElapsedTimer time;
    time.start();
    const QPointer<Client> alive(this);
    const QPointer<Socket> socket(m_socket);
    while (alive && socket && socket == m_socket) {
        if (time.elapsed() >= turnMilliseconds) {
            m_nextTurn.start(0);
            return;
        }
        const std::optional<Socket::Item> item = m_socket->take();
        if (!item)
            return;
        receive(*item);
    }
}

void Client::receive(const Socket::Item& item)
{
    if (item.leftOut > 0) {
        Q_EMIT statusReceived(QStringLiteral("error"), leftOutText(item), QString());
        return;
    }
    if (item.opcode == Opcode::Pong && m_ping.isValid()) {
        const std::chrono::milliseconds after(m_ping.elapsed());
        m_ping.invalidate();
        Q_EMIT pongReceived(after);
    }
    if (item.opcode != Opcode::Text && item.opcode != Opcode::Binary)
        return;
    m_hasHeard = true;
    QString error;
    const std::optional<QCborMap> message = item.opcode == Opcode::Text
                                                ? protocol::decodeText(item.data, &error)
                                                : protocol::decodeBinary(item.data, &error);
    if (message)
        onMessage(*message);
    else
        Q_EMIT malformedReceived(error);
}

QString Client::leftOutText(const Socket::Item& item) const
{
    constexpr int megabyte = 1000000;
    const QString topic = m_inbox.topicIn(item.data);
    const QString text =
        topic.isEmpty()
            ? tr("A message has %1 MB and was left out; at most %2 MB are accepted.")
            : tr("A message of %1 has %2 MB and was left out; at most %3 MB are accepted.")
                  .arg(topic);
    return text.arg(item.leftOut / megabyte).arg(protocol::maximumMessageSize / megabyte);
}

void Client::onMessage(const QCborMap& message)
{
    m_inbox.receive(message);
}

} // namespace rosbridge::client
