// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_LOUDROBOT_H
#define QUANDREL_LOUDROBOT_H

#include "rosbridge/websocket/Listener.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
#include <memory>

/// A robot on a thread of its own that grants control, has no other services, and sends the same
/// messages as fast as it is told to, or as the network takes them.
class LoudRobot
{
public:
    /// @p message goes out @p rate times a second to every client.
    LoudRobot(const QByteArray& message, int rate);
    ~LoudRobot();

    QString address() const { return m_address; }

    int count() const { return m_count; } ///< of the messages that went out

private:
    QThread m_thread;
    QObject m_there;                                            // of the thread
    std::unique_ptr<rosbridge::websocket::Listener> m_listener; // likewise
    QString m_address;
    std::atomic<int> m_count = 0;
};

#endif
