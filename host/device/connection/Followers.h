// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_FOLLOWERS_H
#define HOST_DEVICE_CONNECTION_FOLLOWERS_H

#include "host/device/connection/Delay.h"
#include "rosbridge/client/Client.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

namespace host::device::connection {

class Remappings;

/// Who follows which topic of the robot, on the link that is open and on all to come. All
/// subscriptions go through here: topics are ours, and the robot's names go out. Large messages
/// are asked for as CBOR, where it saves most and every server can do it; all others as JSON.
class Followers : public QObject
{
    Q_OBJECT

public:
    using Client = rosbridge::client::Client;
    using Compression = Client::Compression;

    /// @p remappings outlive the followers. A new name is in effect at once.
    explicit Followers(const Remappings& remappings);

    /// As Connection::follow() and unfollow() say.
    int follow(const QString& topic, const QString& type, const Client::Handler& handler,
               std::chrono::milliseconds throttle);
    void unfollow(int id);

    /// The link of @p client is open until close(); nothing is subscribed yet.
    void open(Client& client);
    /// Subscribes, for all its followers, to @p topic, again where that was done already: a robot
    /// tells its state once for all subscriptions of a client to it. Nothing without a link.
    void subscribe(const QString& topic);
    /// Subscribes to the topics that are not subscribed to yet.
    void subscribeRest();
    /// Subscribes to all topics that are followed again: what the robot tells once comes once more.
    void subscribeAgain();
    /// Nothing of the link that was open is heard any more.
    void close();

    /// The topic of a subscription of this link, an ended one too; empty where there was none.
    QString topicOf(const QString& subscription) const { return m_topics.value(subscription); }

    /// The age of the newest message of any topic but the log; none on a link without any.
    std::optional<std::chrono::milliseconds> dataAge() const;

    /// How late the data comes; none where it is not known.
    std::optional<std::chrono::milliseconds> delay() const;
    /// The robot answered a ping, @p after it was sent.
    void answered(std::chrono::milliseconds after) { m_delay.answered(after); }

    /// Those that were subscribed to for at least @p time, of which nothing was heard on this link.
    QStringList silent(std::chrono::milliseconds time) const;
    /// How the messages of @p topic are asked for on this link.
    Compression compression(const QString& topic) const;
    /// Subscribes to @p topic again, in this way until the link ends.
    void setCompression(const QString& topic, Compression compression);

Q_SIGNALS:
    /// There is a new subscription to @p topic.
    void subscribed(const QString& topic);
    /// A message of @p topic came, once however many follow it. The type is the one that was asked
    /// for, empty where the server's was.
    void received(const QString& topic, const QString& type, const QCborMap& message);

private:
    struct Follower
    {
        int id;
        QString topic; // in its canonical form
        QString type;
        Client::Handler handler;
        std::chrono::milliseconds throttle;
        QString subscription; // on the link that is open
    };

    /// What became of a topic on this link.
    struct Reception
    {
        Compression compression = Compression::None;
        QElapsedTimer sinceSubscribed; // invalid before
        bool isHeard = false;
    };

    void subscribe(Follower& follower);
    bool isFirst(int id, const QString& topic) const;
    Reception& reception(const Follower& follower);
    void onRenamed(const QString& topic);

    const Remappings& m_remappings;
    Client* m_client = nullptr; // while its link is open
    std::vector<Follower> m_followers;
    int m_lastId = 0;
    QHash<QString, QString> m_topics;       // by the subscriptions' ids
    QHash<QString, Reception> m_receptions; // by topic
    QElapsedTimer m_newestData;             // invalid on a link without any
    Delay m_delay;
};

} // namespace host::device::connection

#endif
