// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_CLOCKNODE_H
#define ROBOT_NODES_CLOCKNODE_H

#include "robot/nodes/Node.h"

namespace robot::network {
class Clock;
class Network;
} // namespace robot::network

namespace robot::nodes {

/// The simulation's time as the topic /clock. Has to be the first of the nodes: the clock comes
/// with every step and before what it stamps, so that no stamp is ever ahead of it.
class ClockNode : public Node
{
public:
    /// Both must stay as long as clients may come.
    ClockNode(network::Network& network, const network::Clock& clock);

    void step(simulation::Time now) override;

private:
    network::Network& m_network;
    const network::Clock& m_clock;
};

} // namespace robot::nodes

#endif
