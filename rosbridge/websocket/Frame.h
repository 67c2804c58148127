// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_WEBSOCKET_FRAME_H
#define ROSBRIDGE_WEBSOCKET_FRAME_H

#include <QByteArray>

#include <array>

/// WebSocket, RFC 6455, version 13 without extensions, as both ends of the link need it. Every
/// buffer is bounded, and what the peer makes this end say by itself is too: that is why it is
/// not Qt's.
namespace rosbridge::websocket {

/// Which end of the connection.
enum class Role
{
    Client, ///< masks what it sends
    Server,
};

enum class Opcode : quint8
{
    Continuation = 0,
    Text = 1,
    Binary = 2,
    Close = 8,
    Ping = 9,
    Pong = 10,
};

enum class CloseCode : quint16
{
    Normal = 1000,
    GoingAway = 1001,
    ProtocolError = 1002,
    WrongDatatype = 1003,
    NoStatus = 1005, ///< the peer gave none; never sent
    Abnormal = 1006, ///< the connection broke without a close frame; never sent
    NotUtf8 = 1007,
    PolicyViolated = 1008,
    TooLarge = 1009,
};

/// No frame that is not data may carry more.
constexpr int maximumControlPayload = 125;

using Mask = std::array<quint8, 4>;

/// A whole frame as it goes over the wire from the end @p sender; a client's is masked.
QByteArray frame(Opcode opcode, const QByteArray& payload, Role sender);

/// Masks @p size bytes or takes their mask off. @p position is that of the first in its frame.
void applyMask(char* bytes, qint64 size, const Mask& mask, qint64 position);

} // namespace rosbridge::websocket

#endif
