#include "robot/nodes/MapNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/Messages.h"
#include "robot/simulation/FloorPlan.h"

namespace robot::nodes {

MapNode::MapNode(network::Network& network)
{
    constexpr double resolution = 0.1; // metres; the plan's own grid, so nothing is rounded
    const QString topic = QStringLiteral("/map");
    network.topics().addLatched(topic, QStringLiteral("nav_msgs/OccupancyGrid"));
    network.publish(topic, toMessage(simulation::FloorPlan::occupancyGrid(resolution)));
}

} // namespace robot::nodes
