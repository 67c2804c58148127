// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/LaserNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/RosMessages.h"
#include "robot/recording/Recording.h"
#include "robot/simulation/Laser.h"
#include "rosbridge/protocol/Topics.h"

namespace robot::nodes {

namespace topic = rosbridge::protocol::topic;

using recording::Recording;
using recording::Replay;
using simulation::LaserScan;

LaserNode::LaserNode(network::Network& network, simulation::Laser& laser)
    : m_network(network),
      m_log(network.log(), QStringLiteral("laser")),
      m_laser(laser)
{
    network.topics().addPublished(topic::scan.name, topic::scan.type);
    m_laser.setOn(false);
}

bool LaserNode::setLog(const QString& file, double rate, QStringList* problems, QString* error)
{
    std::optional<Recording> recording = Recording::read(file, error);
    if (!recording)
        return false;
    const size_t count = recording->scans.size();
    std::optional<Replay> replay = Replay::create(std::move(recording->scans), {rate, true}, error);
    if (!replay)
        return false;

    *problems = recording->problems;
    const int more = recording->badLines - static_cast<int>(recording->problems.size());
    if (more > 0)
        problems->append(
            tr("%1: %2 further lines cannot be read").arg(file, QString::number(more)));
    m_problems = *problems;
    m_announcement = tr("replaying %1: %2 scans at %3 times the recorded speed")
                         .arg(file, QString::number(count), QString::number(rate));
    m_replay = std::move(replay);
    m_laser.setOn(false);
    return true;
}

void LaserNode::setMeasured(std::vector<LaserScan> scans)
{
    m_measured = std::move(scans);
}

void LaserNode::step(simulation::Time now)
{
    const bool wasWanted = m_isWanted;
    m_isWanted = m_network.hasSubscribers(topic::scan.name);
    if (!m_replay) {
        m_laser.setOn(m_isWanted);
        for (const LaserScan& scan : m_measured)
            m_network.publish(topic::scan.name, toMessage(scan));
        return;
    }
    if (wasWanted)
        m_replayTime += now - m_lastStep;
    else if (m_isWanted)
        announce();
    m_lastStep = now;
    while (const LaserScan* recorded = m_isWanted ? m_replay->next(m_replayTime) : nullptr) {
        LaserScan scan = *recorded;
        scan.header = {m_seq++, now, QLatin1String(simulation::Laser::frameId)};
        m_network.publish(topic::scan.name, toMessage(scan));
    }
}

void LaserNode::announce()
{
    m_log.write(network::Log::Level::Info, m_announcement);
    for (const QString& problem : std::as_const(m_problems))
        m_log.write(network::Log::Level::Warning, problem);
}

} // namespace robot::nodes
