// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_SUBSCRIPTION_H
#define ROSBRIDGE_SERVER_SUBSCRIPTION_H

#include "rosbridge/server/EncodedMessage.h"
#include "rosbridge/server/Limits.h"
#include "rosbridge/server/Outbox.h"

#include <QCborValue>
#include <QMap>
#include <QString>

#include <chrono>
#include <deque>
#include <optional>

namespace rosbridge::server {

class Publication;

/// What one client asked for on one topic, and the messages that wait for their time.
/// Several requests, told apart by their ids, share it: the lowest throttle_rate and the highest
/// queue_length count, and "cbor" if any of them asked for it.
class Subscription
{
public:
    using Time = std::chrono::milliseconds; ///< since any fixed moment

    struct Options
    {
        Time throttle{0}; ///< least time between two messages
        int queueLength = 0;
        Encoding encoding = Encoding::Json;
    };

    /// @p name is the topic as the client wrote it, @p kind what its messages are to the outbox.
    Subscription(const QString& name, const Limits& limits,
                 Outbox::Kind kind = Outbox::Kind::Topic);

    Outbox::Kind kind() const { return m_kind; }

    /// Adds a request or replaces the one with the same @p id (undefined: the one without).
    void request(const QCborValue& id, const Options& options);

    bool contains(const QCborValue& id) const { return m_requests.contains(id); }

    void cancel(const QCborValue& id);

    int requestCount() const { return static_cast<int>(m_requests.size()); }

    /// A message was published. It is kept if its time has come or there is a queue for it; a
    /// full queue loses its oldest message.
    void offer(const Publication& publication, Time now);

    /// The next message whose time has come, if any.
    std::optional<EncodedMessage> take(Time now);

    /// When take() has a message; nothing while none waits.
    std::optional<Time> due() const;

private:
    void combine();
    Time earliest() const;

    QString m_name;
    Outbox::Kind m_kind;
    int m_maximumLength;
    qint64 m_maximumBytes;
    QMap<QCborValue, Options> m_requests;
    Options m_combined;
    std::optional<Time> m_lastSent;
    std::deque<EncodedMessage> m_queue;
    qint64 m_queuedBytes = 0;
};

} // namespace rosbridge::server

#endif
