// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_TESTS_AMPLELIMITS_H
#define ROSBRIDGE_SERVER_TESTS_AMPLELIMITS_H

#include "rosbridge/server/Limits.h"

/// Limits that nothing reaches by itself; a test makes those smaller that it is about.
inline rosbridge::server::Limits ampleLimits()
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

#endif
