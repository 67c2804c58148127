// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/MapNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/RosMessages.h"
#include "robot/simulation/FloorPlan.h"
#include "rosbridge/protocol/Topics.h"

namespace robot::nodes {

namespace topic = rosbridge::protocol::topic;

MapNode::MapNode(network::Network& network)
{
    constexpr double resolution = 0.1; // metres; the plan's own grid, so nothing is rounded
    network.topics().addLatched(topic::map.name, topic::map.type);
    network.publish(topic::map.name, toMessage(simulation::FloorPlan::occupancyGrid(resolution)));
}

} // namespace robot::nodes
