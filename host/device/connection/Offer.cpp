// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Offer.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/MessageRole.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborArray>

#include <algorithm>

namespace host::device::connection {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

using Kind = Remappings::Kind;

/// Nothing where it is no list.
std::optional<QStringList> texts(const QCborMap& values, const char* field)
{
    const QCborValue list = values.value(QLatin1String(field));
    if (!list.isArray())
        return std::nullopt;
    QStringList texts;
    const QCborArray array = list.toArray();
    for (const QCborValue text : array)
        texts.append(text.toString());
    return texts;
}

/// The log has another type in ROS 2, which is read as well.
bool isTypeOf(const Remappings::Entry& entry, const QString& type)
{
    return type == entry.type || (entry.name == topic::log.name && type == topic::type::ros2Log);
}

} // namespace

Offer::Offer(Connection& connection, const Timing& timing)
    : m_connection(connection),
      m_firstPause(timing.firstQuestion),
      m_longestPause(timing.lastQuestion),
      m_pause(m_firstPause)
{
    m_pauseTimer.setSingleShot(true);
    connect(&m_pauseTimer, &QTimer::timeout, this, &Offer::askForMissing);
    connect(&connection, &Connection::opened, this, [this] {
        m_isLinked = true;
        ask();
    });
    connect(&connection, &Connection::stateChanged, this, &Offer::onStateChanged);
    connect(&connection, &Connection::subscriptionRefused, this, &Offer::onRefused);
    connect(&connection.remappings(), &Remappings::changed, this, &Offer::onRenamed);
}

Offer::State Offer::state(const QString& ours) const
{
    const Remappings::Entry* const entry = Remappings::find(ours);
    return entry ? state(*entry) : State::Unknown;
}

Offer::State Offer::state(const Remappings::Entry& entry) const
{
    if (m_refused.contains(entry.name) && !m_lists.topics)
        return State::Missing;
    const QString theirs = m_connection.remappings().theirs(entry.name);
    if (entry.kind == Kind::Service) {
        if (!m_lists.services)
            return State::Unknown;
        return m_lists.services->contains(theirs) ? State::Offered : State::Missing;
    }
    if (!m_lists.topics)
        return State::Unknown;
    if (!m_lists.topics->contains(theirs) || m_lists.silent.contains(theirs))
        return State::Missing;
    const QString type = typeOf(entry.name);
    return type.isEmpty() || isTypeOf(entry, type) ? State::Offered : State::OtherType;
}

QString Offer::typeOf(const QString& topic) const
{
    return m_lists.topics ? m_lists.topics->value(m_connection.remappings().theirs(topic))
                          : QString();
}

QMap<QString, QString> Offer::topics() const
{
    QMap<QString, QString> topics;
    if (!m_isLinked)
        return topics;
    if (m_lists.topics) {
        for (auto topic = m_lists.topics->cbegin(); topic != m_lists.topics->cend(); ++topic) {
            // One of our names that is mapped to another topic cannot be followed.
            if (m_connection.remappings().theirs(topic.key()) == topic.key() &&
                !m_lists.silent.contains(topic.key()))
                topics.insert(topic.key(), topic.value());
        }
    }
    for (const Remappings::Entry& entry : Remappings::all()) {
        if (entry.kind == Kind::Service)
            continue;
        topics.remove(m_connection.remappings().theirs(entry.name));
        if (entry.kind == Kind::Topic && state(entry) != State::Missing)
            topics.insert(entry.name, m_lists.topics ? typeOf(entry.name) : entry.type);
    }
    return topics;
}

QStringList Offer::candidates(const Remappings::Entry& entry) const
{
    QStringList names;
    if (entry.kind != Kind::Service && m_lists.topics) {
        for (auto topic = m_lists.topics->cbegin(); topic != m_lists.topics->cend(); ++topic) {
            if (isTypeOf(entry, topic.value()))
                names += topic.key();
        }
    } else if (entry.kind == Kind::Service && m_lists.services) {
        names = m_lists.services->values();
    }
    names.sort();
    return names;
}

void Offer::ask()
{
    m_pause = m_firstPause;
    m_lists.published.clear();
    start(true, true);
}

void Offer::askAgain()
{
    if (m_round)
        return; // it is being asked
    m_pause = m_firstPause;
    askForMissing();
}

void Offer::askForMissing()
{
    start(isAnyTopicMissed(), isAnyServiceMissed());
}

/// Does nothing if there is nothing to ask.
void Offer::start(bool hasTopics, bool hasServices)
{
    if (!m_isLinked || (!hasTopics && !hasServices))
        return;
    m_pauseTimer.stop();
    m_round = std::make_shared<Round>();
    m_round->lists = m_lists;
    if (hasTopics)
        call(m_round, service::topics.name, {}, [](Lists& lists, const QCborMap& values) {
            const auto names = texts(values, "topics");
            const QStringList types = texts(values, "types").value_or(QStringList());
            if (!names)
                return;
            lists.topics.emplace();
            for (int i = 0; i < static_cast<int>(names->size()); ++i)
                lists.topics->insert(names->at(i),
                                     rosbridge::protocol::canonicalType(types.value(i)));
        });
    if (hasServices)
        call(m_round, service::services.name, {}, [](Lists& lists, const QCborMap& values) {
            if (const auto names = texts(values, "services"))
                lists.services = QSet<QString>(names->begin(), names->end());
        });
}

void Offer::call(const std::shared_ptr<Round>& round, const QString& service, const QCborMap& args,
                 const Take& take)
{
    ++round->waiting;
    m_connection.call(service, args,
                      [this, round, take](const rosbridge::client::Client::Result& result) {
                          if (round != m_round)
                              return;
                          if (result.ok)
                              take(round->lists, result.values);
                          if (--round->waiting > 0)
                              return;
                          if (!round->hasPublishers)
                              askForPublishers(round);
                          if (round->waiting == 0)
                              finish(*round);
                      });
}

/// In the list of topics are also those that are only listened to, be it by us: that is as it
/// should be of commands alone.
void Offer::askForPublishers(const std::shared_ptr<Round>& round)
{
    round->hasPublishers = true;
    const Remappings& names = m_connection.remappings();
    const QString service = service::publishers.name;
    const Lists& lists = round->lists;
    if (!lists.topics || !lists.services || !lists.services->contains(names.theirs(service)))
        return;
    for (const Remappings::Entry& entry : Remappings::all()) {
        const QString topic = names.theirs(entry.name);
        if (entry.kind == Kind::Topic && lists.topics->contains(topic) &&
            !lists.published.contains(topic))
            call(round, service, {{QStringLiteral("topic"), topic}},
                 [topic](Lists& lists, const QCborMap& values) {
                     const auto publishers = texts(values, "publishers");
                     if (!publishers)
                         return;
                     lists.silent.remove(topic);
                     (publishers->isEmpty() ? lists.silent : lists.published).insert(topic);
                 });
    }
}

/// Asks again after a pause, if there is a reason, each time after twice the time.
void Offer::finish(const Round& round)
{
    m_lists = round.lists;
    m_round.reset();
    m_isAnswered = true;
    if ((isAnyTopicMissed() || isAnyServiceMissed()) && m_pause <= m_longestPause) {
        m_pauseTimer.start(m_pause);
        m_pause *= 2;
    }
    report();
    Q_EMIT changed();
}

void Offer::onStateChanged(int state)
{
    if (state == Connection::notConnected) {
        m_pauseTimer.stop();
        m_round.reset();
        m_lists = {};
        m_refused.clear();
        m_isLinked = m_isAnswered = m_isReported = false;
        Q_EMIT changed();
    }
    report();
}

/// What is known of the old name says nothing about the new one.
void Offer::onRenamed(const QString& ours)
{
    m_refused.remove(ours);
    Q_EMIT changed();
    ask();
}

/// Until the report it may be one of those that are missing anyway.
void Offer::onRefused(const QString& topic, const QString& words)
{
    const bool isNews = !m_refused.contains(topic) && !isMissed(topic);
    m_refused.insert(topic, words);
    if (m_isReported && isNews)
        Q_EMIT message(baseLogLine, words);
}

bool Offer::isMissed(const QString& ours) const
{
    const State found = state(ours);
    return found == State::Missing || found == State::OtherType;
}

bool Offer::isAnyTopicMissed() const
{
    return !m_lists.topics || isAnyMissed(false);
}

bool Offer::isAnyServiceMissed() const
{
    return !m_lists.services || isAnyMissed(true);
}

/// Of those that a robot should have.
bool Offer::isAnyMissed(bool isService) const
{
    const std::vector<Remappings::Entry>& all = Remappings::all();
    return std::any_of(all.begin(), all.end(), [&](const Remappings::Entry& entry) {
        return (entry.kind == Kind::Service) == isService && entry.isRequired &&
               isMissed(entry.name);
    });
}

void Offer::report()
{
    if (!m_isAnswered || m_isReported || m_connection.state() < Connection::connected)
        return;
    m_isReported = true;
    QStringList missed;
    for (const Remappings::Entry& entry : Remappings::all()) {
        if (entry.isRequired && isMissed(entry.name))
            missed += inWords(entry);
    }
    if (!missed.isEmpty())
        Q_EMIT message(
            baseLogLine,
            tr("This robot does not offer %1. The functions in brackets are unavailable; if the "
               "robot has other names for them, enter them in Robot > Names….")
                .arg(missed.join(QStringLiteral(", "))));
    for (auto refused = m_refused.cbegin(); refused != m_refused.cend(); ++refused) {
        if (!isMissed(refused.key()))
            Q_EMIT message(baseLogLine, refused.value());
    }
    Q_EMIT ready();
}

/// A name that the robot does not have, and what that means.
QString Offer::inWords(const Remappings::Entry& entry) const
{
    const QString name = m_connection.remappings().theirs(entry.name);
    if (state(entry) == State::OtherType)
        return tr("%1 as %2, but as %3 (%4)")
            .arg(name, entry.type, typeOf(entry.name), entry.purpose());
    return tr("%1 (%2)").arg(name, entry.purpose());
}

} // namespace host::device::connection
