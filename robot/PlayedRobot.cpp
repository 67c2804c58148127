// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/PlayedRobot.h"

#include "robot/nodes/ClockNode.h"
#include "robot/recording/BagPlayer.h"
#include "rosbridge/protocol/Topics.h"
#include "rosbridge/server/TopicRegistry.h"

#include <algorithm>

namespace robot {

namespace topic = rosbridge::protocol::topic;

using recording::BagPlayer;
using rosbridge::server::TopicRegistry;

namespace {

constexpr std::chrono::milliseconds timeStep(10);

} // namespace

PlayedRobot::PlayedRobot(std::unique_ptr<BagPlayer> player, const rosbridge::server::Limits& limits,
                         QObject* parent)
    : QObject(parent),
      m_player(std::move(player)),
      m_network(m_clock, limits),
      m_log(m_network.log(), QStringLiteral("base")),
      m_problems(m_player->problems())
{
    m_clock.set(m_player->now());
    addTopics();
    if (!m_network.topics().find(topic::clock.name))
        m_clockNode = std::make_unique<nodes::ClockNode>(m_network, m_clock);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(timeStep);
    connect(&m_timer, &QTimer::timeout, this, &PlayedRobot::step);
    connect(&m_network, &network::Network::joined, this, &PlayedRobot::resume);
}

PlayedRobot::~PlayedRobot() = default;

/// The recorded robot's log joins that of this one; its other topics would contradict ours.
void PlayedRobot::addTopics()
{
    TopicRegistry& topics = m_network.topics();
    for (const BagPlayer::Topic& played : m_player->topics()) {
        m_names.emplace_back();
        m_isDamaged.push_back(false);
        if (!played.definition)
            continue;
        const QString type = played.definition->root().name;
        const bool isLog = played.name == topic::log.name && type == topic::log.type;
        if (topics.find(played.name) && !isLog) {
            m_problems.append(
                tr("%1 is left out: the robot that plays has that topic itself").arg(played.name));
            continue;
        }
        m_network.types().add(*played.definition);
        m_names.back() = played.name;
        if (isLog)
            continue;
        if (played.isLatched)
            topics.addLatched(played.name, type);
        else
            topics.addPublished(played.name, type);
    }
}

/// Somebody is connected.
void PlayedRobot::resume()
{
    if (m_timer.isActive())
        return;
    m_clock.advance(); // over what was not played
    m_clock.set(m_player->now());
    m_timer.start();
}

void PlayedRobot::step()
{
    const std::chrono::nanoseconds elapsed = m_clock.advance();
    const bool wasWanted = m_isWanted;
    m_isWanted = isWanted();
    if (wasWanted)
        m_player->advance(elapsed);
    else if (m_isWanted)
        begin();
    m_clock.set(m_player->now());
    if (m_clockNode)
        m_clockNode->step(m_player->now());
    if (m_isWanted)
        publishDue();
    if (!m_network.hasClients())
        m_timer.stop();
}

/// Somebody wants to hear something again, or for the first time.
void PlayedRobot::begin()
{
    if (m_player->isFinished())
        m_player->restart();
    for (const QString& problem : std::as_const(m_problems))
        m_log.write(network::Log::Level::Warning, problem);
}

void PlayedRobot::publishDue()
{
    const bool wasFinished = m_player->isFinished();
    while (const auto index = m_player->next()) {
        const QString& name = m_names[*index];
        const bool isKept = m_player->topics()[*index].isLatched;
        if (name.isEmpty() || (!isKept && !m_network.hasSubscribers(name)))
            continue;
        QString why;
        const std::optional<QCborMap> message = m_player->message(&why);
        if (message) {
            m_network.publish(name, *message);
        } else if (!m_isDamaged[*index]) {
            m_isDamaged[*index] = true;
            m_log.write(network::Log::Level::Error,
                        tr("messages of %1 cannot be played: %2").arg(name, why));
        }
    }
    if (m_player->isFinished() && !wasFinished)
        m_log.write(network::Log::Level::Info, tr("the recording is over"));
}

bool PlayedRobot::isWanted() const
{
    return std::any_of(m_names.cbegin(), m_names.cend(), [this](const QString& name) {
        return !name.isEmpty() && m_network.hasSubscribers(name);
    });
}

} // namespace robot
