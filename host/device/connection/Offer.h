// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_OFFER_H
#define HOST_DEVICE_CONNECTION_OFFER_H

#include "host/device/connection/Remappings.h"
#include "host/device/connection/Timing.h"
#include "plugin/plugin/DataRole.h"

#include <QCborMap>
#include <QHash>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace host::device::connection {

class Connection;

/// What the robot of the present link offers of what this program uses, asked of its rosapi. What
/// is missing is said once for each link, in one line, and is no failure: the rest works. A robot
/// without rosapi is taken to offer everything until it refuses. What is missing, or was not
/// answered, is asked for again, at growing intervals: until all is there, some ten minutes have
/// passed, or the link ends.
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
    Offer(Connection& connection, const Timing& timing);

    /// Of one of our names; unknown where this program uses no such name.
    State state(const QString& ours) const;

    /// Whether ready() was emitted for this link.
    bool isReady() const { return m_isReported; }

    /// The type of the robot's topic for @p topic, our name; empty where it is not known.
    QString typeOf(const QString& topic) const;

    /// What of the robot's topics can be followed: their types by our names for them, which are its
    /// own where we have none; not those of commands, which a robot only listens to. Of a robot
    /// that does not tell, what it may have of what this program uses. Empty while not connected.
    QMap<QString, QString> topics() const;

    /// The robot's names that could stand for @p entry, as far as it tells.
    QStringList candidates(const Remappings::Entry& entry) const;

    /// Asks for everything: something may have been started or ended on the robot. Nothing while
    /// not connected.
    void ask();
    /// Asks for what is missing, if anything is, and begins the intervals anew.
    void askAgain();

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
        // Of the topics that are used:
        QSet<QString> silent;    // nobody publishes them
        QSet<QString> published; // somebody does
    };

    /// Questions, and what is known after them.
    struct Round
    {
        Lists lists; // at first what was known before
        int waiting = 0;
        bool hasPublishers = false; // that question was asked
    };

    using Take = std::function<void(Lists& lists, const QCborMap& values)>;

    State state(const Remappings::Entry& entry) const;
    void start(bool hasTopics, bool hasServices);
    void call(const std::shared_ptr<Round>& round, const QString& service, const QCborMap& args,
              const Take& take);
    void askForPublishers(const std::shared_ptr<Round>& round);
    void askForMissing();
    void finish(const Round& round);
    void onStateChanged(int state);
    void onRenamed(const QString& ours);
    void onRefused(const QString& topic, const QString& words);
    bool isMissed(const QString& ours) const;
    bool isAnyTopicMissed() const;
    bool isAnyServiceMissed() const;
    bool isAnyMissed(bool isService) const;
    void report();
    QString inWords(const Remappings::Entry& entry) const;

    Connection& m_connection;
    std::chrono::milliseconds m_firstPause;
    std::chrono::milliseconds m_longestPause;
    std::chrono::milliseconds m_pause; // before the next question
    QTimer m_pauseTimer;
    std::shared_ptr<Round> m_round; // the newest; the answers to older ones do not matter
    Lists m_lists;
    QHash<QString, QString> m_refused; // words by topic, our name
    bool m_isLinked = false;
    bool m_isAnswered = false; // the first round
    bool m_isReported = false;
};

} // namespace host::device::connection

#endif
