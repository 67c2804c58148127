// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/Socket.h"

#include <QTcpSocket>
#include <QtEndian>

#include <algorithm>
#include <utility>

namespace rosbridge::websocket {

namespace {

constexpr qint64 readBufferBytes = qint64{64} * 1024;

// What the system holds in its turn: as little as keeps a line busy, so that a ping does not wait
// behind minutes of data where the line is slow.
constexpr int systemBufferBytes = 64 * 1024;

// What the systems at both ends may hold of a peer that has not read its close frame yet.
constexpr qint64 underWayBytes = 4000000;

bool isUtf8(const QByteArray& bytes)
{
    const auto* at = reinterpret_cast<const quint8*>(bytes.constData());
    const auto* const end = at + bytes.size();
    while (at != end) {
        const quint8 first = *at++;
        if (first < 0x80)
            continue;
        const int more = first >= 0xf0 ? 3 : first >= 0xe0 ? 2 : 1;
        if (first < 0xc2 || first > 0xf4 || end - at < more)
            return false;
        // Not longer than needed, no surrogates, nothing beyond Unicode.
        const quint8 least = first == 0xe0 ? 0xa0 : first == 0xf0 ? 0x90 : 0x80;
        const quint8 most = first == 0xed ? 0x9f : first == 0xf4 ? 0x8f : 0xbf;
        if (*at < least || *at > most)
            return false;
        for (int i = 1; i < more; ++i)
            if ((at[i] & 0xc0) != 0x80)
                return false;
        at += more;
    }
    return true;
}

QByteArray closePayload(CloseCode code, const QString& reason)
{
    const auto bigEndian = qToBigEndian(static_cast<quint16>(code));
    QByteArray payload(reinterpret_cast<const char*>(&bigEndian), sizeof(bigEndian));
    payload += reason.toUtf8().left(maximumControlPayload - payload.size());
    while (!isUtf8(payload.mid(2)))
        payload.chop(1); // half a character
    return payload;
}

} // namespace

Socket::Socket(QTcpSocket* tcp, Role role, qint64 maximumBytes, QObject* parent)
    : QObject(parent),
      m_tcp(tcp),
      m_role(role),
      m_reader(role, maximumBytes),
      m_underWay(maximumBytes + underWayBytes)
{
    m_tcp->setParent(this);
    m_tcp->setReadBufferSize(readBufferBytes);
    m_tcp->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, systemBufferBytes);
    m_tcp->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_tcp, &QTcpSocket::readyRead, this, &Socket::onReadyRead);
    connect(m_tcp, &QTcpSocket::bytesWritten, this, &Socket::onBytesWritten);
    connect(m_tcp, &QTcpSocket::disconnected, this, &Socket::onDisconnected);
    m_closeTimer.setSingleShot(true);
    connect(&m_closeTimer, &QTimer::timeout, this, &Socket::abort);
}

Socket::~Socket()
{
    m_tcp->disconnect(this);
}

std::optional<Socket::Item> Socket::take()
{
    while (m_state != State::Closed) {
        std::optional<Item> item = m_reader.read(*m_tcp);
        if (!item) {
            if (m_reader.fault())
                onFault(*m_reader.fault());
            if (m_tcp->state() == QAbstractSocket::UnconnectedState)
                finish();
            return std::nullopt;
        }
        if (item->opcode == Opcode::Close) {
            onCloseFrame(item->data);
            return std::nullopt;
        }
        if (m_state != State::Open)
            continue;
        if (item->opcode == Opcode::Ping)
            answerPing(item->data);
        if (item->opcode != Opcode::Text || item->leftOut > 0 || isUtf8(item->data))
            return item;
        leave(CloseCode::NotUtf8, tr("a text is not UTF-8"));
    }
    return std::nullopt;
}

void Socket::send(Opcode opcode, const QByteArray& data)
{
    if (m_state == State::Open)
        write(opcode, data);
}

bool Socket::ping()
{
    if (m_state != State::Open || m_tcp->bytesToWrite() > 0)
        return false;
    write(Opcode::Ping, {});
    return true;
}

qint64 Socket::bytesToWrite() const
{
    return m_tcp->bytesToWrite();
}

void Socket::close(CloseCode code, const QString& reason)
{
    if (m_state != State::Open)
        return;
    startLeaving();
    write(Opcode::Close, closePayload(code, reason));
    m_tcp->flush(); // the program may end before it returns to its event loop
    // What has come already makes no further signal.
    QMetaObject::invokeMethod(this, &Socket::onReadyRead, Qt::QueuedConnection);
}

void Socket::abort()
{
    if (m_state == State::Open)
        m_state = State::Closing;
    m_tcp->abort();
}

void Socket::onReadyRead()
{
    if (m_state == State::Open) {
        Q_EMIT readyRead();
        return;
    }
    if (m_state == State::Closing && !m_sinceClose.hasExpired(10 * m_closeDeadline.count()))
        m_closeTimer.start(m_closeDeadline);
    m_underWay -= m_tcp->bytesAvailable();
    take();
    if (m_underWay < 0)
        abort();
}

void Socket::onBytesWritten(qint64 bytes)
{
    m_pongLeft = std::max<qint64>(m_pongLeft - bytes, 0);
    if (m_pongLeft == 0 && m_nextPong && m_state == State::Open)
        answerPing(*std::exchange(m_nextPong, std::nullopt));
    Q_EMIT bytesWritten();
}

void Socket::onDisconnected()
{
    if (m_state == State::Open && m_tcp->bytesAvailable() > 0)
        Q_EMIT readyRead(); // what came before is still taken
    else
        finish();
}

void Socket::finish()
{
    const State before = std::exchange(m_state, State::Closed);
    if (before == State::Closed)
        return;
    m_closeTimer.stop();
    if (before == State::Open)
        Q_EMIT ended(CloseCode::Abnormal, QString());
    Q_EMIT closed();
}

void Socket::onCloseFrame(const QByteArray& payload)
{
    if (m_state == State::Open) {
        const bool hasCode = payload.size() >= 2;
        const auto code = hasCode ? static_cast<CloseCode>(qFromBigEndian<quint16>(payload.data()))
                                  : CloseCode::NoStatus;
        startLeaving();
        write(Opcode::Close, payload.left(2));
        m_tcp->disconnectFromHost(); // when all is written
        Q_EMIT ended(code, QString::fromUtf8(payload.mid(2)));
    } else {
        m_tcp->disconnectFromHost();
    }
}

void Socket::onFault(const FrameReader::Fault& fault)
{
    m_tcp->readAll(); // nobody knows where the next frame begins
    if (m_state == State::Open)
        leave(fault.code, fault.text);
}

/// At most one pong waits to be written, and one for it, whatever comes; the RFC allows that.
void Socket::answerPing(const QByteArray& payload)
{
    if (m_pongLeft > 0) {
        m_nextPong = payload;
        return;
    }
    write(Opcode::Pong, payload);
    m_pongLeft = m_tcp->bytesToWrite();
}

void Socket::write(Opcode opcode, const QByteArray& payload)
{
    if (m_tcp->state() == QAbstractSocket::ConnectedState)
        m_tcp->write(frame(opcode, payload, m_role));
}

void Socket::startLeaving()
{
    m_state = State::Closing;
    m_sinceClose.start();
    m_closeTimer.start(m_closeDeadline);
}

void Socket::leave(CloseCode code, const QString& reason)
{
    close(code, reason);
    Q_EMIT ended(code, reason);
}

} // namespace rosbridge::websocket
