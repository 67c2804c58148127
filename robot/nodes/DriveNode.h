#ifndef ROBOT_NODES_DRIVENODE_H
#define ROBOT_NODES_DRIVENODE_H

#include "robot/endpoint/ServiceRegistry.h"
#include "robot/nodes/Beat.h"
#include "robot/nodes/Node.h"

#include <QCborMap>
#include <QCoreApplication>

namespace robot {

class Network;

namespace simulation {
class DriveBase;
}

/// The drive base: obeys /cmd_vel and /drive/disable, tells where it is on /odom and whether it is
/// allowed to move on /drive/disabled.
class DriveNode : public Node
{
    Q_DECLARE_TR_FUNCTIONS(robot::DriveNode)

public:
    /// Both must stay as long as clients may come.
    DriveNode(Network& network, simulation::DriveBase& driveBase);

    void step(simulation::Time now) override;

private:
    QString command(const QCborMap& msg);
    ServiceReply disable(const QCborMap& args);
    void publishDisabled();

    Network& m_network;
    simulation::DriveBase& m_driveBase;
    Beat m_beat{simulation::Time(std::chrono::seconds(1)) / 30};
    quint32 m_seq = 0;
};

} // namespace robot

#endif
