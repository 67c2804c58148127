#ifndef ROBOT_NODES_CLOCKNODE_H
#define ROBOT_NODES_CLOCKNODE_H

#include "robot/nodes/Beat.h"
#include "robot/nodes/Node.h"

namespace robot::network {
class Clock;
class Network;
} // namespace robot::network

namespace robot::nodes {

/// The simulation's time as the topic /clock, ten times a second and exact, where other parts give
/// their messages the time of the world's last step.
class ClockNode : public Node
{
public:
    /// Both must stay as long as clients may come.
    ClockNode(network::Network& network, const network::Clock& clock);

    void step(simulation::Time now) override;

private:
    network::Network& m_network;
    const network::Clock& m_clock;
    Beat m_beat{std::chrono::milliseconds(100)};
};

} // namespace robot::nodes

#endif
