// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_RECONNECTION_H
#define HOST_DEVICE_CONNECTION_RECONNECTION_H

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <optional>

namespace host::device::connection {

class Connection;
struct Timing;

/// Connects again where a link was lost: soon, and then at intervals that double, until the robot
/// is there, somebody connects or disconnects, or gives up. A link that is lost at once does not
/// count: the intervals go on growing. Like any connection it asks for
/// control, and it switches nothing.
class Reconnection : public QObject
{
    Q_OBJECT

public:
    /// @p connection outlives it. Does nothing until setAutomatic().
    Reconnection(Connection& connection, const Timing& timing);

    /// Whether it tries at all; switched off, it gives up what it is trying.
    void setAutomatic(bool isAutomatic);

    /// The link ended by itself, and nobody has connected or disconnected since.
    bool isLost() const { return m_isLost; }

    /// Waiting for the next attempt, or in one.
    bool isTrying() const { return m_isTrying; }

    /// How long until the next attempt; none where none is to come, or one is under way.
    std::optional<std::chrono::milliseconds> untilNextAttempt() const;

    /// A person connects or disconnects: what was lost no longer matters.
    void forget();

    /// A person does not want to wait: no further attempts, and one that is under way ends.
    void giveUp();

Q_SIGNALS:
    /// One of the above.
    void changed();

private:
    void onLost(const QString& address, std::chrono::milliseconds lasted);
    void onStateChanged(int state);
    void attempt();
    void wait();

    Connection& m_connection;
    const std::chrono::milliseconds m_first;
    const std::chrono::milliseconds m_longest;
    const std::chrono::milliseconds m_lasting;
    bool m_isAutomatic = false;
    bool m_isLost = false;
    bool m_isTrying = false;
    QString m_address;
    std::chrono::milliseconds m_next; // pause
    QTimer m_pause;                   // before the next attempt
};

} // namespace host::device::connection

#endif
