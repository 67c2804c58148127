// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_DRIVENODE_H
#define ROBOT_NODES_DRIVENODE_H

#include "robot/network/LogWriter.h"
#include "robot/nodes/Beat.h"
#include "robot/nodes/Node.h"
#include "rosbridge/server/ServiceRegistry.h"

#include <QCborMap>
#include <QCoreApplication>

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::simulation {
class DriveBase;
} // namespace robot::simulation

namespace robot::nodes {

/// The drive base: obeys /cmd_vel, /drive/disable and the stop, tells where it is on /odom,
/// what it covers on /footprint, and whether it is allowed to move on /drive/disabled.
class DriveNode : public Node
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::DriveNode)

public:
    /// Both must stay as long as clients may come.
    DriveNode(network::Network& network, simulation::DriveBase& driveBase);

    void step(simulation::Time now) override;

private:
    QString command(const QCborMap& msg);
    rosbridge::server::ServiceReply disable(const QCborMap& args);
    void publishDisabled();

    network::Network& m_network;
    network::LogWriter m_log;
    simulation::DriveBase& m_driveBase;
    Beat m_beat{simulation::Time(std::chrono::seconds(1)) / 30};
    quint32 m_seq = 0;
};

} // namespace robot::nodes

#endif
