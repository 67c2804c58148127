// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_LASERNODE_H
#define ROBOT_NODES_LASERNODE_H

#include "robot/network/LogWriter.h"
#include "robot/nodes/Node.h"
#include "robot/recording/Replay.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>
#include <vector>

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::simulation {
class Laser;
} // namespace robot::simulation

namespace robot::nodes {

/// The laser range finder as the topic /scan: what the simulated one measures or, in its place,
/// what was recorded. It runs while somebody subscribes.
class LaserNode : public Node
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::LaserNode)

public:
    /// Both must stay as long as clients may come.
    LaserNode(network::Network& network, simulation::Laser& laser);

    /// From now on replays the scans of @p file repeatedly, @p rate times as fast as they were
    /// recorded. Returns false if that cannot be done, and @p error says why; @p problems are the
    /// lines that could not be read, for the user.
    bool setLog(const QString& file, double rate, QStringList* problems, QString* error);

    /// What the simulated laser has measured since the last step, oldest first; before step().
    void setMeasured(std::vector<simulation::LaserScan> scans);

    void step(simulation::Time now) override;

private:
    void announce();

    network::Network& m_network;
    network::LogWriter m_log;
    simulation::Laser& m_laser;
    std::vector<simulation::LaserScan> m_measured;
    std::optional<recording::Replay> m_replay;
    QString m_announcement; // of the replay, for the log
    QStringList m_problems;
    bool m_isWanted = false;
    simulation::Time m_lastStep{0};
    simulation::Time m_replayTime{0}; // stands still while nobody subscribes
    quint32 m_seq = 0;                // of the replay
};

} // namespace robot::nodes

#endif
