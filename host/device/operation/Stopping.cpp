// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/operation/Stopping.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "host/device/connection/Offer.h"
#include "host/device/operation/Velocity.h"
#include "host/device/readers/BoolReader.h"

#include <QCborArray>

#include <algorithm>
#include <utility>

namespace host::device::operation {

using connection::Connection;
using connection::Offer;
using rosbridge::protocol::Topic;
namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

using namespace std::chrono_literals;

// A server that has just been told of a topic may lose the first messages on it.
constexpr int mostHalts = 5;
constexpr auto haltInterval = 100ms;

QCborMap haltOn(const Topic& command)
{
    if (command.name == topic::velocityCommand.name)
        return toMessage(Velocity());
    return {{QStringLiteral("joint_names"), QCborArray()},
            {QStringLiteral("points"), QCborArray()}};
}

QString notConfirmed(const QString& reason)
{
    return Stopping::tr("The robot has not confirmed the stop: use its own emergency stop if it "
                        "moves. Reason: %1")
        .arg(reason);
}

} // namespace

Stopping::Stopping(Connection& connection, const Offer& offer, connection::Listener& listener)
    : m_connection(connection),
      m_offer(offer)
{
    m_haltTimer.setInterval(haltInterval);
    connect(&m_haltTimer, &QTimer::timeout, this, &Stopping::sendHalt);
    connect(&connection, &Connection::stateChanged, this, &Stopping::onStateChanged);
    connect(&connection, &Connection::publicationRefused, this, &Stopping::onRefused);
    connect(&offer, &Offer::changed, this, &Stopping::changed);
    listener.listen(topic::stopped, connection::baseLogLine,
                    [this](const QCborMap& message) { return readStopped(message); });
}

QString Stopping::readStopped(const QCborMap& message)
{
    QString fault;
    if (const auto isStopped = readers::readBool(message, &fault)) {
        m_isStopped = *isStopped;
        Q_EMIT changed();
    }
    return fault;
}

Stopping::State Stopping::state() const
{
    if (m_isStopped)
        return State::Stopped;
    return m_isAsked || m_haltTimer.isActive() ? State::Stopping : State::Free;
}

/// Those that the robot takes, or may take, as far as it tells.
std::vector<Topic> Stopping::commands() const
{
    std::vector<Topic> commands;
    for (const Topic& command : {topic::velocityCommand, topic::armCommand}) {
        const Offer::State state = m_offer.state(command.name);
        if (state == Offer::State::Offered || state == Offer::State::Unknown)
            commands.push_back(command);
    }
    return commands;
}

QString Stopping::inWords(const std::vector<Topic>& topics) const
{
    QStringList words;
    for (const Topic& command : topics) {
        const QString what = command.name == topic::velocityCommand.name
                                 ? tr("zero velocity on %1")
                                 : tr("an empty trajectory on %1, at which most arms hold");
        words += what.arg(m_connection.remappings().theirs(command.name));
    }
    return words.join(tr(" and "));
}

QString Stopping::means() const
{
    if (m_connection.state() < Connection::connected)
        return tr("Not connected: no robot to stop.");
    const QString name = m_connection.remappings().theirs(service::stop.name);
    const QString commands = inWords(this->commands());
    switch (m_offer.state(service::stop.name)) {
    case Offer::State::Offered:
        return tr("Calls %1: all motion ends, and the robot stays stopped until somebody in "
                  "control "
                  "releases it.")
            .arg(name);
    case Offer::State::Unknown:
        return tr("It is not known whether this robot has %1. Calls it, and sends %2.")
            .arg(name, commands);
    default:
        break;
    }
    if (commands.isEmpty())
        return tr("This robot offers nothing that stops it. Use its own emergency stop.");
    return tr("This robot has no %1. Sends %2. The robot does not stay stopped: other programs can "
              "move it again at once.")
        .arg(name, commands);
}

void Stopping::stop()
{
    Q_EMIT pressed();
    if (m_connection.state() == Connection::notConnected) {
        Q_EMIT problem(tr("Stop was not sent: the device is not connected. Use the robot's own "
                          "emergency stop."));
        return;
    }
    const Offer::State known = m_offer.state(service::stop.name);
    if (known == Offer::State::Offered || known == Offer::State::Unknown) {
        m_isAsked = true;
        call(service::stop, [this](const QString& reason) { onAnswered(reason); });
    }
    if (known != Offer::State::Offered)
        halt();
    Q_EMIT changed();
}

/// Sends what there is beside the service.
void Stopping::halt()
{
    m_halting = commands();
    if (m_halting.empty()) {
        if (!m_isAsked)
            Q_EMIT problem(tr("Stop was not sent: this robot offers nothing that stops it. Use its "
                              "own emergency stop."));
        return;
    }
    Q_EMIT message(connection::baseLogLine, tr("Stop sends %1.").arg(inWords(m_halting)));
    m_halts = 0;
    m_haltTimer.start();
    sendHalt();
}

void Stopping::sendHalt()
{
    for (const Topic& command : m_halting)
        m_connection.publish(command, haltOn(command));
    if (++m_halts < mostHalts && !m_halting.empty())
        return;
    m_haltTimer.stop();
    Q_EMIT changed();
}

void Stopping::onAnswered(const QString& reason)
{
    m_isAsked = false;
    if (!reason.isEmpty()) {
        Q_EMIT problem(notConfirmed(reason));
        if (!m_haltTimer.isActive())
            halt();
    }
    Q_EMIT changed();
}

bool Stopping::canRelease() const
{
    return m_isStopped && m_connection.state() == Connection::connected;
}

void Stopping::release()
{
    if (!canRelease())
        return;
    call(service::releaseStop, [this](const QString& reason) {
        if (!reason.isEmpty())
            Q_EMIT problem(tr("The robot stays stopped: %1").arg(reason));
    });
}

/// @p done gets why it was not done, or nothing; it hears nothing where the link ends before.
void Stopping::call(const rosbridge::protocol::Service& service,
                    const std::function<void(const QString& reason)>& done)
{
    m_connection.call(service.name, {}, [done](const rosbridge::client::Client::Result& result) {
        const QString said = result.values.value(QLatin1String("message")).toString();
        if (!result.ok)
            done(result.error);
        else if (!result.values.value(QLatin1String("success")).toBool(true))
            done(said.isEmpty() ? tr("the robot does not say.") : said);
        else
            done({});
    });
}

void Stopping::onStateChanged(int state)
{
    if (state == Connection::notConnected) {
        const bool isUnfinished = std::exchange(m_isAsked, false) || m_haltTimer.isActive();
        m_isStopped = false; // as far as anybody knows
        m_haltTimer.stop();
        if (isUnfinished)
            Q_EMIT problem(tr("The link ended before the robot confirmed the stop. Use its own "
                              "emergency stop if it moves."));
    }
    Q_EMIT changed();
}

void Stopping::onRefused(const QString& topic, const QString& words)
{
    if (!m_haltTimer.isActive())
        return;
    const auto refused = std::remove_if(m_halting.begin(), m_halting.end(),
                                        [&](const Topic& each) { return each.name == topic; });
    if (refused == m_halting.end())
        return;
    m_halting.erase(refused, m_halting.end());
    Q_EMIT problem(notConfirmed(words));
}

} // namespace host::device::operation
