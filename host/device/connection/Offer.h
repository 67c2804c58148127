// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_OFFER_H
#define HOST_DEVICE_CONNECTION_OFFER_H

#include "host/device/connection/Remappings.h"
#include "plugin/plugin/DataRole.h"

#include <QCborMap>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace host::device::connection {

class Connection;

/// What the robot of the present link offers of what this program uses, asked of its rosapi. What
/// is missing is said once for each link, in one line, and is no failure: the rest works. A robot
/// without rosapi is taken to offer everything until it refuses.
class Offer : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Unknown, ///< not connected, or the robot does not tell
        Offered,
        Missing,
        OtherType, ///< there is a topic of this name, but its messages are others
    };

    /// @p connection outlives the offer.
    explicit Offer(Connection& connection);

    /// Of one of our names; unknown where this program uses no such name.
    State state(const QString& ours) const;

    /// Whether ready() was emitted for this link.
    bool isReady() const { return m_isReported; }

    /// The type of the robot's topic for @p topic, our name; empty where it is not known.
    QString typeOf(const QString& topic) const;

    /// The robot's names that could stand for @p entry, as far as it tells.
    QStringList candidates(const Remappings::Entry& entry) const;

    /// Asks again: something may have been started on the robot. Nothing while not connected.
    void ask();

Q_SIGNALS:
    /// Also when a name of the robot's did, with which its state may have.
    void changed();
    /// Once for each link: the connection stands, and the robot has told what it offers, or is not
    /// going to.
    void ready();
    void message(plugin::plugin::DataRole role, const QString& text);

private:
    struct Lists
    {
        std::optional<QHash<QString, QString>> topics; // types by name
        std::optional<QSet<QString>> services;
        QSet<QString> silent; // topics that nobody publishes
    };

    /// The answers to one ask().
    struct Round
    {
        Lists lists;
        int waiting = 0;
        bool hasPublishers = false; // that question was asked
    };

    using Take = std::function<void(Lists& lists, const QCborMap& values)>;

    State state(const Remappings::Entry& entry) const;
    void call(const std::shared_ptr<Round>& round, const QString& service, const QCborMap& args,
              const Take& take);
    void askForPublishers(const std::shared_ptr<Round>& round);
    void finish(const Lists& lists);
    void onStateChanged(int state);
    void onRenamed(const QString& ours);
    void onRefused(const QString& topic, const QString& words);
    bool isMissed(const QString& ours) const;
    void report();
    QString inWords(const Remappings::Entry& entry) const;

    Connection& m_connection;
    Lists m_lists;
    QHash<QString, QString> m_refused; // words by topic, our name
    bool m_isLinked = false;
    bool m_isAnswered = false; // the first round
    bool m_isReported = false;
};

} // namespace host::device::connection

#endif
