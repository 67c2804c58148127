// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_HANDSHAKE_H
#define ROSBRIDGE_WEBSOCKET_HANDSHAKE_H

#include <QByteArray>
#include <QMap>

#include <optional>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace rosbridge::protocol {
struct Address;
} // namespace rosbridge::protocol

/// The exchange of HTTP headers that opens a WebSocket.
namespace rosbridge::websocket {

/// A longer one is read by neither end.
constexpr int maximumHandshakeBytes = 16 * 1024;

/// One end's part: the first line, and the headers by their names in lower case.
struct Handshake
{
    QByteArray firstLine;
    QMap<QByteArray, QByteArray> headers;

    /// Whether the list that the header @p name holds contains @p token, in any case.
    bool contains(const char* name, const QByteArray& token) const;

    /// The status of a server's answer, as in "404 Not Found"; empty where it is no HTTP.
    QByteArray status() const;
};

/// Takes the other end's part out of @p device, and nothing that follows; nothing as long as it
/// has not come as a whole. The device's buffer must hold maximumHandshakeBytes.
std::optional<Handshake> readHandshake(QIODevice& device);

/// Whether so much has come that readHandshake() will never find an end.
bool isHandshakeTooLong(const QIODevice& device);

/// What a client asks the server at @p address with. @p key is drawn for this attempt.
QByteArray request(const protocol::Address& address, const QByteArray& key);

/// A key for request().
QByteArray randomKey();

/// What the header "Sec-WebSocket-Accept" answers to @p key.
QByteArray acceptFor(const QByteArray& key);

/// Whether a client asks for a WebSocket as we speak it.
bool isRequest(const Handshake& handshake);

/// Whether a server agrees to request(), which went with @p key.
bool isAgreement(const Handshake& handshake, const QByteArray& key);

/// What a server agrees with to a client's @p request.
QByteArray agreement(const Handshake& request);

/// What a server refuses with; @p status is one of HTTP's, "403 Forbidden".
QByteArray refusal(const QByteArray& status);

} // namespace rosbridge::websocket

#endif
