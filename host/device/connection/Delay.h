// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_DELAY_H
#define HOST_DEVICE_CONNECTION_DELAY_H

#include <QCborMap>
#include <QHash>
#include <QString>

#include <chrono>
#include <optional>

namespace host::device::connection {

/// How late a robot's data comes, from the stamps of its messages. The robot's clock may differ
/// from ours, and that of a simulation may run slower: what counts is how much longer than the
/// quickest message of its topic one was on its way, since the line was last known to be quick.
class Delay
{
public:
    using Clock = std::chrono::steady_clock;

    /// Another link begins.
    void reset() { m_topics.clear(); }

    /// A message without a stamp, or with one that is not news, says nothing.
    void hear(const QString& topic, const QCborMap& message, Clock::time_point now);

    /// The robot answered a ping, @p after it was sent.
    void answered(std::chrono::milliseconds after);

    /// That of the topic that is least late, of all that came lately; none without any.
    std::optional<std::chrono::milliseconds> value(Clock::time_point now) const;

private:
    struct Topic
    {
        std::chrono::milliseconds stamp{0};                // the newest
        std::optional<std::chrono::milliseconds> shortest; // from a stamp to its arrival
        std::chrono::milliseconds delay{0};
        Clock::time_point heard;
    };

    QHash<QString, Topic> m_topics;
};

} // namespace host::device::connection

#endif
