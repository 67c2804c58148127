// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_MAPNODE_H
#define ROBOT_NODES_MAPNODE_H

#include "robot/nodes/Node.h"

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::nodes {

/// The floor plan as the topic /map: published once, and latched for who comes later.
class MapNode : public Node
{
public:
    explicit MapNode(network::Network& network);

    void step(simulation::Time /*now*/) override {}
};

} // namespace robot::nodes

#endif
