// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_TRANSFORMNODE_H
#define ROBOT_NODES_TRANSFORMNODE_H

#include "robot/nodes/Beat.h"
#include "robot/nodes/Node.h"

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::simulation {
class DriveBase;
} // namespace robot::simulation

namespace robot::nodes {

/// The robot's frames as the topic /tf, from the map to the laser and the camera, so that a viewer
/// can draw in one picture what each part measures.
class TransformNode : public Node
{
public:
    /// Both must stay as long as clients may come.
    TransformNode(network::Network& network, const simulation::DriveBase& driveBase);

    void step(simulation::Time now) override;

private:
    network::Network& m_network;
    const simulation::DriveBase& m_driveBase;
    Beat m_beat{simulation::Time(std::chrono::seconds(1)) / 30};
};

} // namespace robot::nodes

#endif
