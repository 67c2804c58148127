#ifndef ROSBRIDGE_SERVER_LIMITS_H
#define ROSBRIDGE_SERVER_LIMITS_H

#include <chrono>

namespace rosbridge::server {

/// What one client may ask of the robot, and how long it may stay silent. The defaults are the
/// numbers docs/robot-link.md promises; tests choose smaller ones.
struct Limits
{
    int clients = 16;
    int messageBytes = 256 * 1024;   ///< longest message read from a client
    int messagesPerSecond = 500;     ///< sustained; a client above it is disconnected
    int messageBurst = 1000;         ///< what may come at once after a pause
    int bytesPerSecond = 256 * 1024; ///< of messages, in the same way
    int byteBurst = 1024 * 1024;
    int textLength = 256;             ///< characters in a name, type, id or other short text
    int subscriptions = 64;           ///< per client, each id counted
    int advertisements = 32;          ///< per client
    int queueLength = 100;            ///< messages a throttled subscription keeps
    int queueBytes = 4 * 1024 * 1024; ///< bytes a throttled subscription keeps
    int outboxBytes = 1024 * 1024;    ///< bytes waiting for a client that reads slowly

    std::chrono::milliseconds handshakeDeadline{5000};
    std::chrono::milliseconds pingInterval{5000};
    std::chrono::milliseconds peerDeadline{15000}; ///< silence after which a peer is lost
    std::chrono::milliseconds closeDeadline{1000}; ///< for a peer to take its close frame
};

} // namespace rosbridge::server

#endif
