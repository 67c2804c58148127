// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_OUTBOX_H
#define ROSBRIDGE_SERVER_OUTBOX_H

#include "rosbridge/server/EncodedMessage.h"

#include <deque>
#include <optional>

namespace rosbridge::server {

/// What waits for a client that reads more slowly than the robot writes, in order and bounded.
/// When the bound is reached the oldest messages of topics go first: a late picture of the
/// robot is worth less than a new one. Answers are never dropped.
class Outbox
{
public:
    enum class Kind
    {
        Answer, ///< the client waits for it
        Topic,
        Fleeting, ///< a topic's message that is dropped rather than kept waiting behind others
    };

    explicit Outbox(qint64 maximumBytes);

    /// False if the bound is reached by answers alone; then the client is beyond help. A single
    /// message is always taken, whatever its size.
    bool push(const EncodedMessage& frame, Kind kind);

    std::optional<EncodedMessage> pop();

    void clear();

    bool isEmpty() const { return m_entries.empty(); }

    qint64 bytes() const { return m_bytes; }

    quint64 dropped() const { return m_dropped; } ///< messages of topics but fleeting ones, ever

private:
    struct Entry
    {
        EncodedMessage frame;
        Kind kind = Kind::Answer;
    };

    bool dropOldestTopicMessage();

    qint64 m_maximumBytes;
    std::deque<Entry> m_entries;
    qint64 m_bytes = 0;
    quint64 m_dropped = 0;
};

} // namespace rosbridge::server

#endif
