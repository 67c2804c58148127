// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_ROBOTLIMITS_H
#define ROBOT_NETWORK_ROBOTLIMITS_H

#include "rosbridge/server/Limits.h"

namespace robot::network {

/// What our robot grants each of its clients: the numbers that docs/robot-link.md promises.
inline rosbridge::server::Limits robotLimits()
{
    rosbridge::server::Limits limits;
    limits.clients = 16;
    limits.messageBytes = 256 * 1024;
    limits.messagesPerSecond = 500;
    limits.messageBurst = 1000;
    limits.bytesPerSecond = 256 * 1024;
    limits.byteBurst = 1024 * 1024;
    limits.textLength = 256;
    limits.subscriptions = 64;
    limits.advertisements = 32;
    limits.queueLength = 100;
    limits.queueBytes = 4 * 1024 * 1024;
    limits.outboxBytes = 1024 * 1024;
    limits.handshakeDeadline = std::chrono::milliseconds(5000);
    limits.pingInterval = std::chrono::milliseconds(5000);
    limits.peerDeadline = std::chrono::milliseconds(15000);
    limits.closeDeadline = std::chrono::milliseconds(1000);
    return limits;
}

} // namespace robot::network

#endif
