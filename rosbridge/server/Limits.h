// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_LIMITS_H
#define ROSBRIDGE_SERVER_LIMITS_H

#include <chrono>

namespace rosbridge::server {

/// What one client may ask of a server, and how long it may stay silent. Who runs the server gives
/// all of these: a limit that was forgotten lets nothing through.
struct Limits
{
    int clients = 0;
    int messageBytes = 0;      ///< longest message read from a client
    int messagesPerSecond = 0; ///< sustained; a client above it is disconnected
    int messageBurst = 0;      ///< what may come at once after a pause
    int bytesPerSecond = 0;    ///< of messages, in the same way
    int byteBurst = 0;
    int textLength = 0;     ///< characters in a name, type, id or other short text
    int subscriptions = 0;  ///< per client, each id counted
    int advertisements = 0; ///< per client
    int queueLength = 0;    ///< messages a throttled subscription keeps
    int queueBytes = 0;     ///< bytes a throttled subscription keeps
    int outboxBytes = 0;    ///< bytes waiting for a client that reads slowly

    std::chrono::milliseconds handshakeDeadline{0};
    std::chrono::milliseconds pingInterval{0};
    std::chrono::milliseconds peerDeadline{0};  ///< silence after which a peer is lost
    std::chrono::milliseconds closeDeadline{0}; ///< for a peer to take its close frame
};

} // namespace rosbridge::server

#endif
