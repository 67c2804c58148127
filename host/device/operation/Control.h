// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_OPERATION_CONTROL_H
#define HOST_DEVICE_OPERATION_CONTROL_H

#include <QObject>
#include <QString>
#include <QTimer>

namespace host::device::connection {
class Connection;
struct Timing;
} // namespace host::device::connection

namespace host::device::operation {

/// Who commands the robot, for a person to change: takes control, at once or as soon as it is free,
/// and gives it back, without a new connection. Neither sets nor moves anything.
class Control : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        NotConnected,
        Anyones, ///< the robot has no control: all who connect command it
        Ours,
        NotOurs,
        Waiting, ///< not ours, and asked for until it is
    };

    /// @p connection outlives it.
    Control(connection::Connection& connection, const connection::Timing& timing);

    State state() const;

    /// One sentence: who is in control.
    QString inWords() const;

    /// Asks once; a refusal is said by problem().
    void take();
    /// Asks until it is granted, somebody gives up, or the link ends.
    void takeWhenFree();
    void giveUp();
    void release();

Q_SIGNALS:
    void changed();
    /// Control was not granted, or could not be released: why.
    void problem(const QString& words);

private:
    void onRefused(const QString& words);
    void onStateChanged(int state);

    connection::Connection& m_connection;
    bool m_isWaiting = false;
    QTimer m_pause; // before it is asked for again
};

} // namespace host::device::operation

#endif
