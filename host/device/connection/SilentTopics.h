// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_SILENTTOPICS_H
#define HOST_DEVICE_CONNECTION_SILENTTOPICS_H

#include "host/device/connection/Followers.h"
#include "plugin/plugin/DataRole.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

#include <chrono>

namespace host::device::connection {

class Connection;
class Offer;

/// Looks after topics that the robot offers and of which nothing comes although others do: some
/// servers drop, without a word, what they cannot convert to the encoding that was asked for. Each
/// is asked for in the other encoding, once for each link, and that is said. JSON, which every
/// server has, stays; CBOR stays if it brought something.
class SilentTopics : public QObject
{
    Q_OBJECT

public:
    /// @p connection and @p offer outlive it. @p patience is how long a topic may be silent.
    SilentTopics(Connection& connection, const Offer& offer, std::chrono::milliseconds patience);

Q_SIGNALS:
    void message(plugin::plugin::DataRole role, const QString& text);

private:
    void check();
    void tryOther(const QString& topic, Followers::Compression compression);

    Connection& m_connection;
    const Offer& m_offer;
    std::chrono::milliseconds m_patience;
    QTimer m_timer; // runs while a topic is silent
    QSet<QString> m_tried;
};

} // namespace host::device::connection

#endif
