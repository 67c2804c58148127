// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/Handshake.h"

#include "rosbridge/protocol/Address.h"

#include <QCryptographicHash>
#include <QIODevice>
#include <QRandomGenerator>
#include <QUrl>

#include <algorithm>

namespace rosbridge::websocket {

namespace {

/// As servers that serve several hosts compare it: in ASCII, and without the usual port.
QByteArray hostHeader(const protocol::Address& address)
{
    using protocol::Address;
    const bool isIpv6 = address.host.contains(u':');
    const QByteArray host =
        isIpv6 ? '[' + address.host.toLatin1() + ']' : QUrl::toAce(address.host);
    const bool isUsual =
        address.port == (address.isSecure ? Address::secureWebPort : Address::webPort);
    return isUsual ? host : host + ':' + QByteArray::number(address.port);
}

} // namespace

bool Handshake::contains(const char* name, const QByteArray& token) const
{
    const QList<QByteArray> tokens = headers.value(name).toLower().split(',');
    return std::any_of(tokens.cbegin(), tokens.cend(),
                       [&token](const QByteArray& element) { return element.trimmed() == token; });
}

QByteArray Handshake::status() const
{
    return firstLine.startsWith("HTTP/") ? firstLine.mid(firstLine.indexOf(' ') + 1) : QByteArray();
}

std::optional<Handshake> readHandshake(QIODevice& device)
{
    const QByteArray marker = QByteArrayLiteral("\r\n\r\n");
    const QByteArray bytes = device.peek(maximumHandshakeBytes);
    const auto end = bytes.indexOf(marker);
    if (end < 0)
        return std::nullopt;
    device.read(end + marker.size());

    Handshake handshake;
    QList<QByteArray> lines = bytes.left(end).split('\n');
    handshake.firstLine = lines.takeFirst().trimmed();
    for (const QByteArray& line : std::as_const(lines)) {
        const int colon = static_cast<int>(line.indexOf(':'));
        if (colon > 0)
            handshake.headers.insert(line.left(colon).trimmed().toLower(),
                                     line.mid(colon + 1).trimmed());
    }
    return handshake;
}

bool isHandshakeTooLong(const QIODevice& device)
{
    return device.bytesAvailable() >= maximumHandshakeBytes;
}

QByteArray request(const protocol::Address& address, const QByteArray& key)
{
    const QByteArray path = address.path.isEmpty() ? QByteArray("/") : address.path.toLatin1();
    return "GET " + path + " HTTP/1.1\r\nHost: " + hostHeader(address) +
           "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
           "Sec-WebSocket-Key: " +
           key + "\r\n\r\n";
}

QByteArray randomKey()
{
    QByteArray bytes;
    for (int i = 0; i < 16; ++i)
        bytes.append(static_cast<char>(QRandomGenerator::system()->bounded(256)));
    return bytes.toBase64();
}

QByteArray acceptFor(const QByteArray& key)
{
    return QCryptographicHash::hash(key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11",
                                    QCryptographicHash::Sha1)
        .toBase64();
}

bool isRequest(const Handshake& handshake)
{
    return handshake.firstLine.startsWith("GET ") && handshake.firstLine.endsWith(" HTTP/1.1") &&
           handshake.contains("upgrade", "websocket") &&
           handshake.contains("connection", "upgrade") &&
           handshake.contains("sec-websocket-version", "13") &&
           QByteArray::fromBase64(handshake.headers.value("sec-websocket-key")).size() == 16;
}

bool isAgreement(const Handshake& handshake, const QByteArray& key)
{
    return handshake.firstLine.startsWith("HTTP/1.1 101") &&
           handshake.contains("upgrade", "websocket") &&
           handshake.contains("connection", "upgrade") &&
           handshake.headers.value("sec-websocket-accept") == acceptFor(key);
}

QByteArray agreement(const Handshake& request)
{
    return "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
           "Sec-WebSocket-Accept: " +
           acceptFor(request.headers.value("sec-websocket-key")) + "\r\n\r\n";
}

QByteArray refusal(const QByteArray& status)
{
    return "HTTP/1.1 " + status +
           "\r\nSec-WebSocket-Version: 13\r\nConnection: close\r\nContent-Length: 0\r\n\r\n";
}

} // namespace rosbridge::websocket
