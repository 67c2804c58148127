#include "rosbridge/client/Client.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Codec.h"

#include <QPointer>
#include <QSignalBlocker>
#include <QWebSocket>

#include <utility>

namespace rosbridge::client {

namespace {

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
    connect(&m_deadline, &QTimer::timeout, this, &Client::onDeadline);
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

    m_socket = new QWebSocket(QString(), QWebSocketProtocol::VersionLatest, this);
    m_socket->setMaxAllowedIncomingFrameSize(protocol::maximumMessageSize);
    m_socket->setMaxAllowedIncomingMessageSize(protocol::maximumMessageSize);
    connect(m_socket, &QWebSocket::connected, this, [this] { onHandshake(); });
    connect(m_socket, QOverload<QAbstractSocket::SocketError>::of(&QWebSocket::error), this,
            &Client::onError);
    connect(m_socket, &QWebSocket::disconnected, this, [this] { onError(m_socket->error()); });
    connect(m_socket, &QWebSocket::pong, &m_deadline, &QTimer::stop);
    connect(m_socket, &QWebSocket::textMessageReceived, this, [this](const QString& text) {
        QString error;
        const std::optional<QCborMap> message = protocol::decodeText(text.toUtf8(), &error);
        receive(message, error);
    });
    connect(m_socket, &QWebSocket::binaryMessageReceived, this, [this](const QByteArray& cbor) {
        QString error;
        const std::optional<QCborMap> message = protocol::decodeBinary(cbor, &error);
        receive(message, error);
    });

    // A port on this machine may refuse at once; closed() shall not come from inside open().
    const auto connectSocket = [this, socket = m_socket] {
        if (socket == m_socket) // and not closed meanwhile
            openSocket();
    };
    QMetaObject::invokeMethod(this, connectSocket, Qt::QueuedConnection);
}

void Client::openSocket()
{
    m_socket->open(m_address.url());
}

void Client::close()
{
    if (m_state == State::Closed)
        return;
    if (m_state == State::Open) {
        m_socket->disconnect(this);
        m_socket->close(); // says good-bye, so that the server need not wait for our silence
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
    return send({{QStringLiteral("op"), QStringLiteral("advertise")},
                 {QStringLiteral("topic"), protocol::canonicalName(topic)},
                 {QStringLiteral("type"), type}});
}

bool Client::publish(const QString& topic, const QCborMap& msg)
{
    return send({{QStringLiteral("op"), QStringLiteral("publish")},
                 {QStringLiteral("topic"), protocol::canonicalName(topic)},
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
    const bool isSent =
        send({{QStringLiteral("op"), QStringLiteral("subscribe")},
              {QStringLiteral("id"), id},
              {QStringLiteral("topic"), protocol::canonicalName(topic)},
              {QStringLiteral("type"), type},
              {QStringLiteral("throttle_rate"), qint64(options.throttleRate.count())},
              {QStringLiteral("queue_length"), options.queueLength},
              {QStringLiteral("compression"),
               isBinary ? QStringLiteral("cbor") : QStringLiteral("none")}});
    if (!isSent)
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
    Q_EMIT opened();
}

void Client::onError(QAbstractSocket::SocketError error)
{
    if (m_state == State::Connecting)
        endConnecting(error);
    else
        endOpen();
}

void Client::onDeadline()
{
    const QString address = m_address.toString();
    if (m_state == State::Open)
        end(Cause::Lost, tr("The link to %1 is lost: the robot has not answered for %2 s. Check "
                            "the network and whether the robot is switched on.")
                             .arg(address, seconds(m_timeouts.pongDeadline)));
    else if (m_socket->localPort() != 0) // which it has from being connected on
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
    m_socket->ping();
}

void Client::endConnecting(QAbstractSocket::SocketError error)
{
    const QString address = m_address.toString();
    // QWebSocket calls a failed handshake a refused connection too; only then there was one.
    if (m_socket->localPort() != 0 || error == QAbstractSocket::RemoteHostClosedError)
        end(Cause::ProtocolError, tr("%1 answers, but not as a robot: %2. Check whether the port "
                                     "is the robot's.")
                                      .arg(address, m_socket->errorString()));
    else if (error == QAbstractSocket::ConnectionRefusedError)
        end(Cause::Refused, tr("%1 refuses the connection. Check the port and whether the robot's "
                               "program is running.")
                                .arg(address));
    else if (error == QAbstractSocket::HostNotFoundError)
        end(Cause::Unreachable,
            tr("There is no host \"%1\". Check the address and the network.").arg(m_address.host));
    else
        end(Cause::Unreachable, tr("%1 cannot be reached: %2. Check the address and the network.")
                                    .arg(address, m_socket->errorString()));
}

void Client::endOpen()
{
    const QString address = m_address.toString();
    const QString reason = m_socket->closeReason();
    switch (m_socket->closeCode()) {
    case QWebSocketProtocol::CloseCodeProtocolError:
    case QWebSocketProtocol::CloseCodeDatatypeNotSupported:
    case QWebSocketProtocol::CloseCodeWrongDatatype:
    case QWebSocketProtocol::CloseCodeTooMuchData:
        end(Cause::ProtocolError, tr("The link to %1 was closed, as one end did not understand the "
                                     "other: %2. Check whether both have the same version.")
                                      .arg(address, reason));
        break;
    default:
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
    if (!m_socket)
        return;
    QWebSocket* socket = std::exchange(m_socket, nullptr);
    socket->disconnect(this);
    socket->disconnect(&m_deadline);
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
    m_socket->sendTextMessage(QString::fromUtf8(protocol::encodeText(message)));
    return m_state == State::Open; // writing may show that the link is gone
}

void Client::receive(const std::optional<QCborMap>& message, const QString& error)
{
    if (message)
        onMessage(*message);
    else
        Q_EMIT malformedReceived(error);
}

void Client::onMessage(const QCborMap& message)
{
    m_inbox.receive(message);
}

} // namespace rosbridge::client
