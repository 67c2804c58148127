// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_OPERATION_STOPPING_H
#define HOST_DEVICE_OPERATION_STOPPING_H

#include "plugin/plugin/DataRole.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborMap>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <vector>

namespace host::device::connection {
class Connection;
class Listener;
class Offer;
} // namespace host::device::connection

namespace host::device::operation {

/// Ends all motion of the robot when a person asks for it, in control or not, at once. A robot
/// without a service for that gets what it has: zero velocity, and an empty trajectory, at which
/// the usual controllers of arms hold. What was stopped is released by a person only.
class Stopping : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Free,
        Stopping, ///< asked for, not yet confirmed or not yet sent to the end
        Stopped,  ///< the robot says that it is, and refuses to move
    };

    /// All outlive it.
    Stopping(connection::Connection& connection, const connection::Offer& offer,
             connection::Listener& listener);

    State state() const;

    /// What stop() can do to the robot of the moment, in sentences.
    QString means() const;

    /// What cannot be done is said by problem().
    void stop();

    /// Whether a person may release what was stopped: the device is in control.
    bool canRelease() const;
    /// Lets the robot move again. Does nothing unless canRelease().
    void release();

Q_SIGNALS:
    /// stop() begins: whoever moves the robot ends that.
    void pressed();
    /// The state, what stop() can do, or whether its end can be released.
    void changed();
    /// A stop or a release failed, with what to do.
    void problem(const QString& words);
    void message(plugin::plugin::DataRole log, const QString& text);

private:
    QString readStopped(const QCborMap& message);
    void call(const rosbridge::protocol::Service& service,
              const std::function<void(const QString& reason)>& done);
    void onAnswered(const QString& reason);
    void halt();
    void sendHalt();
    std::vector<rosbridge::protocol::Topic> commands() const;
    QString inWords(const std::vector<rosbridge::protocol::Topic>& topics) const;
    void onStateChanged(int state);
    void onRefused(const QString& topic, const QString& words);

    connection::Connection& m_connection;
    const connection::Offer& m_offer;
    bool m_isStopped = false;
    bool m_isAsked = false;                            // the service, for an answer
    std::vector<rosbridge::protocol::Topic> m_halting; // what is sent, a few times
    int m_halts = 0;                                   // that were sent
    QTimer m_haltTimer;
};

} // namespace host::device::operation

#endif
