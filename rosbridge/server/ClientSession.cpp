// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/ClientSession.h"

#include "rosbridge/protocol/Codec.h"

#include <algorithm>
#include <optional>

namespace rosbridge::server {

using websocket::CloseCode;
using websocket::Opcode;
using websocket::Socket;

namespace {

// Enough in the socket's own buffer to keep it busy; the rest waits where it can be dropped.
constexpr int socketBytes = 64 * 1024;

} // namespace

ClientSession::ClientSession(const Peer& peer, Socket* socket, const TopicRegistry& topics,
                             const ServiceRegistry& services, const Limits& limits, QObject* parent)
    : QObject(parent),
      m_peer(peer),
      m_socket(socket),
      m_limits(limits),
      m_outbox(limits.outboxBytes),
      m_conversation(peer, topics, services, limits,
                     [this](const EncodedMessage& frame, Outbox::Kind kind) { send(frame, kind); }),
      m_rate(limits.messagesPerSecond, limits.messageBurst),
      m_byteRate(limits.bytesPerSecond, limits.byteBurst)
{
    m_time.start();
    m_socket->setParent(this);
    m_socket->setCloseDeadline(limits.closeDeadline);
    connect(m_socket, &Socket::readyRead, this, [this] {
        m_heard = now();
        Q_EMIT readyRead();
    });
    connect(m_socket, &Socket::bytesWritten, this, &ClientSession::drain);
    connect(m_socket, &Socket::ended, this, &ClientSession::onEnded);
    connect(m_socket, &Socket::closed, this, &ClientSession::closed);

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

void ClientSession::end(CloseCode code, const QString& reason)
{
    if (m_isEnded)
        return;
    m_outbox.clear(); // nothing is to delay the reason
    m_conversation.tell(Conversation::Level::Error, reason);
    while (const std::optional<EncodedMessage> frame = m_outbox.pop())
        write(*frame);
    finish(reason);
    m_socket->close(code, reason);
}

bool ClientSession::answerNext()
{
    if (m_isEnded)
        return false;
    const std::optional<Socket::Item> item = m_socket->take();
    if (!item || m_isEnded || !isWithinRate(*item))
        return false;
    if (item->opcode == Opcode::Text || item->opcode == Opcode::Binary)
        answer(*item);
    return !m_isEnded;
}

void ClientSession::answer(const Socket::Item& item)
{
    QString error;
    const std::optional<QCborMap> message = item.opcode == Opcode::Text
                                                ? protocol::decodeText(item.data, &error)
                                                : protocol::decodeBinary(item.data, &error);
    if (message)
        m_conversation.handle(*message);
    else
        m_conversation.tell(Conversation::Level::Error, error);
    sendDue();
}

/// Pings and pongs count as messages.
bool ClientSession::isWithinRate(const Socket::Item& item)
{
    if (!m_rate.allow(now()))
        end(CloseCode::PolicyViolated,
            tr("more than %1 messages a second").arg(m_limits.messagesPerSecond));
    else if (!m_byteRate.allow(now(), static_cast<int>(item.data.size())))
        end(CloseCode::PolicyViolated,
            tr("more than %1 bytes a second").arg(m_limits.bytesPerSecond));
    return !m_isEnded;
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
        write(*frame);
    }
}

void ClientSession::write(const EncodedMessage& frame)
{
    m_socket->send(frame.encoding == Encoding::Json ? Opcode::Text : Opcode::Binary, frame.bytes);
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

void ClientSession::onEnded(CloseCode code, const QString& reason)
{
    if (!reason.isEmpty())
        finish(reason);
    else
        finish(code == CloseCode::Abnormal ? tr("its connection broke")
                                           : tr("it closed the connection"));
}

void ClientSession::cutOff(const QString& why)
{
    finish(why);
    // Not at once: this may run inside a signal of the socket.
    QTimer::singleShot(0, m_socket, &Socket::abort);
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
