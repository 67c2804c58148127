// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Flood.h"

#include <QUrl>

namespace {

constexpr qint64 aheadBytes = 100000;

const QByteArray request = "GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\n"
                           "Connection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                           "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n";

/// With the longest text there may be, masked with zeros.
QByteArray pingFrame()
{
    return QByteArray("\x89\xfd\0\0\0\0", 6) + QByteArray(125, 'x');
}

} // namespace

Flood::Flood(const QString& address)
{
    const QUrl url(QStringLiteral("ws://") + address);
    const auto port = static_cast<quint16>(url.port());
    QObject::connect(&m_pinger, &QTcpSocket::bytesWritten, &m_pinger, [this] { ping(); });
    m_pinger.setReadBufferSize(1); // it never reads
    m_pinger.connectToHost(url.host(), port);
    m_pinger.write(request);
    for (QTcpSocket& silent : m_silent) {
        silent.connectToHost(url.host(), port);
        silent.write("GET ");
    }
}

void Flood::ping()
{
    while (m_pinger.state() == QAbstractSocket::ConnectedState &&
           m_pinger.bytesToWrite() < aheadBytes)
        m_pinger.write(pingFrame());
}
