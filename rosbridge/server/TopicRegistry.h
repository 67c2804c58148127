// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_TOPICREGISTRY_H
#define ROSBRIDGE_SERVER_TOPICREGISTRY_H

#include "rosbridge/server/Access.h"
#include "rosbridge/server/Outbox.h"
#include "rosbridge/server/Peer.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QMap>
#include <QString>

#include <functional>
#include <memory>
#include <utility>

namespace rosbridge::server {

class Authority;
class Publication;

/// The robot's topics: those it publishes, and those on which it takes commands.
/// Names are given and kept in the canonical form, "/clock".
class TopicRegistry
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::server::TopicRegistry)

public:
    /// Takes one message; returns what is wrong with it, or an empty text once it is obeyed.
    using Handler = std::function<QString(const Peer& from, const QCborMap& msg)>;

    /// Serializes a message of the topic's @p type, see Publication::MakeRaw.
    using MakeRaw = std::function<QCborMap(const QString& type, const QCborMap& msg)>;

    struct Topic
    {
        QString type;
        Handler handler; ///< empty on a topic the robot publishes
        Access access = Access::Anyone;
        bool isLatched = false;
        Outbox::Kind kind = Outbox::Kind::Topic; ///< of its messages
        std::shared_ptr<const Publication> last; ///< on a latched topic, once there is one
    };

    /// @p authority must outlive the registry.
    explicit TopicRegistry(const Authority& authority);

    /// Once per name, before clients come. The last message of a latched topic is the robot's
    /// state: who subscribes gets it at once. One of a fleeting topic is worth nothing late: a
    /// client that is behind does not get it.
    void addPublished(const QString& name, const QString& type);
    void addLatched(const QString& name, const QString& type);
    void addFleeting(const QString& name, const QString& type);
    void addCommand(const QString& name, const QString& type, Access access, Handler handler);

    /// From now on topics can be had with the compression "cbor-raw".
    void setMakeRaw(MakeRaw makeRaw) { m_makeRaw = std::move(makeRaw); }
    bool hasRaw() const { return bool(m_makeRaw); }

    /// A message that the robot publishes on @p topic, one of its own.
    std::shared_ptr<const Publication> publication(const QString& topic, const QCborMap& msg) const;

    /// @p name in either form; null if the robot has no such topic.
    const Topic* find(const QString& name) const;

    /// The robot published a message; on a latched topic it is kept for who subscribes later.
    void keep(const std::shared_ptr<const Publication>& publication);

    /// A client's message, under the name's either form. Returns why it was not obeyed: an
    /// unknown topic, one the robot publishes, control held by another, or the handler's reason.
    QString deliver(const Peer& from, const QString& name, const QCborMap& msg) const;

    /// The reasons for which a name is refused.
    static QString unknown(const QString& name);
    static QString notForClients(const QString& name);

    /// Sorted by name.
    const QMap<QString, Topic>& all() const { return m_topics; }

private:
    const Authority& m_authority;
    QMap<QString, Topic> m_topics;
    MakeRaw m_makeRaw;
};

} // namespace rosbridge::server

#endif
