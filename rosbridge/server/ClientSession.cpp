#include "rosbridge/server/ClientSession.h"

#include "rosbridge/protocol/Codec.h"

#include <QWebSocket>

#include <algorithm>

namespace rosbridge::server {

namespace {

// Enough in the socket's own buffer to keep it busy; the rest waits where it can be dropped.
constexpr int socketBytes = 256 * 1024;

// What a frame takes besides its payload; the buffer has to hold a whole frame.
constexpr int frameOverhead = 16;

} // namespace

ClientSession::ClientSession(const Peer& peer, QWebSocket* socket, const TopicRegistry& topics,
                             const ServiceRegistry& services, const Limits& limits, QObject* parent)
    : QObject(parent),
      m_peer(peer),
      m_socket(socket),
      m_limits(limits),
      m_outbox(limits.outboxBytes),
      m_conversation(peer, topics, services, limits,
                     [this](const EncodedMessage& frame, Outbox::Kind kind) { send(frame, kind); }),
      m_rate(limits.messagesPerSecond, limits.messageBurst)
{
    m_time.start();
    m_socket->setParent(this);
    m_socket->setMaxAllowedIncomingFrameSize(static_cast<quint64>(limits.messageBytes));
    m_socket->setMaxAllowedIncomingMessageSize(static_cast<quint64>(limits.messageBytes));
    m_socket->setReadBufferSize(limits.messageBytes + frameOverhead);

    connect(m_socket, &QWebSocket::textMessageReceived, this, [this](const QString& text) {
        if (!isWithinRate())
            return;
        QString error;
        const auto message = protocol::decodeText(text.toUtf8(), &error);
        receive(message, error);
    });
    connect(m_socket, &QWebSocket::binaryMessageReceived, this, [this](const QByteArray& bytes) {
        if (!isWithinRate())
            return;
        QString error;
        const auto message = protocol::decodeBinary(bytes, &error);
        receive(message, error);
    });
    connect(m_socket, &QWebSocket::pong, this, [this] { m_heard = now(); });
    connect(m_socket, &QWebSocket::bytesWritten, this, &ClientSession::drain);
    connect(m_socket, &QWebSocket::disconnected, this, &ClientSession::onDisconnected);

    m_dueTimer.setSingleShot(true);
    m_dueTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_dueTimer, &QTimer::timeout, this, &ClientSession::sendDue);
    connect(&m_pingTimer, &QTimer::timeout, this, &ClientSession::checkPeer);
    m_pingTimer.start(limits.pingInterval);
}

void ClientSession::offer(const Publication& publication)
{
    if (m_isEnded)
        return;
    m_conversation.offer(publication, now());
    planSendDue();
}

void ClientSession::end(QWebSocketProtocol::CloseCode code, const QString& reason)
{
    if (m_isEnded)
        return;
    m_conversation.tell(Conversation::Level::Error, reason);
    finish(reason);
    m_socket->close(code, reason);
    // Closing waits for a peer that does not read.
    QTimer::singleShot(m_limits.closeDeadline, m_socket, [socket = m_socket] { socket->abort(); });
}

void ClientSession::receive(const std::optional<QCborMap>& message, const QString& error)
{
    if (message)
        m_conversation.handle(*message);
    else
        m_conversation.tell(Conversation::Level::Error, error);
    sendDue();
}

bool ClientSession::isWithinRate()
{
    if (m_isEnded)
        return false;
    m_heard = now();
    if (m_rate.allow(m_heard))
        return true;
    end(QWebSocketProtocol::CloseCodePolicyViolated,
        tr("more than %1 messages a second").arg(m_limits.messagesPerSecond));
    return false;
}

void ClientSession::send(const EncodedMessage& frame, Outbox::Kind kind)
{
    if (m_isEnded)
        return;
    const quint64 droppedBefore = m_outbox.dropped();
    if (!m_outbox.push(frame, kind)) {
        cutOff(tr("it does not read its answers"));
        return;
    }
    if (m_outbox.dropped() > droppedBefore && !m_isBehind) {
        m_isBehind = true;
        m_conversation.tell(Conversation::Level::Warning,
                            tr("this client reads too slowly: messages of topics are dropped"));
    }
    drain();
}

void ClientSession::drain()
{
    while (!m_isEnded && m_socket->bytesToWrite() < socketBytes) {
        const std::optional<EncodedMessage> frame = m_outbox.pop();
        if (!frame) {
            m_isBehind = false;
            return;
        }
        if (frame->encoding == Encoding::Json)
            m_socket->sendTextMessage(QString::fromUtf8(frame->bytes));
        else
            m_socket->sendBinaryMessage(frame->bytes);
    }
}

void ClientSession::sendDue()
{
    m_conversation.sendDue(now());
    planSendDue();
}

void ClientSession::planSendDue()
{
    const std::optional<std::chrono::milliseconds> due = m_conversation.due();
    if (due && !m_isEnded)
        m_dueTimer.start(std::max(*due - now(), std::chrono::milliseconds(0)));
}

void ClientSession::checkPeer()
{
    if (now() - m_heard > m_limits.peerDeadline)
        cutOff(tr("it did not answer for %1 s")
                   .arg(static_cast<double>(m_limits.peerDeadline.count()) / 1000.0));
    else
        m_socket->ping();
}

void ClientSession::onDisconnected()
{
    const QString reason = m_socket->closeReason();
    finish(reason.isEmpty() ? tr("it closed the connection") : reason);
    Q_EMIT closed();
}

void ClientSession::cutOff(const QString& why)
{
    finish(why);
    // Not at once: this may run inside a signal of the socket.
    QTimer::singleShot(0, m_socket, [socket = m_socket] { socket->abort(); });
}

void ClientSession::finish(const QString& why)
{
    if (m_isEnded)
        return;
    m_isEnded = true;
    m_dueTimer.stop();
    m_pingTimer.stop();
    Q_EMIT ended(why);
}

std::chrono::milliseconds ClientSession::now() const
{
    return std::chrono::milliseconds(m_time.elapsed());
}

} // namespace rosbridge::server
