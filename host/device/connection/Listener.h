// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_LISTENER_H
#define HOST_DEVICE_CONNECTION_LISTENER_H

#include "plugin/plugin/DataRole.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborMap>
#include <QObject>
#include <QString>

#include <functional>

namespace host::device::connection {

class Connection;

/// Hears topics for their readers, and says once in a log what is wrong with their messages.
class Listener : public QObject
{
    Q_OBJECT

public:
    /// Returns what is wrong with the message, which then changes nothing, or the empty text.
    using Read = std::function<QString(const QCborMap& message)>;

    /// @p connection outlives the listener.
    explicit Listener(Connection& connection) : m_connection(connection) {}

    /// Gives each message of @p topic to @p read, on every link. What is wrong is said in the log
    /// that @p log stands for, once until a message is right again.
    void listen(const rosbridge::protocol::Topic& topic, plugin::plugin::DataRole log,
                const Read& read);

Q_SIGNALS:
    void message(plugin::plugin::DataRole log, const QString& text);

private:
    Connection& m_connection;
};

} // namespace host::device::connection

#endif
