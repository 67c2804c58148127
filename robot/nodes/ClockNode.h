#ifndef ROBOT_NODES_CLOCKNODE_H
#define ROBOT_NODES_CLOCKNODE_H

#include "robot/nodes/Beat.h"
#include "robot/nodes/Node.h"

namespace robot {

class Network;

/// The simulation's time as the topic /clock, ten times a second.
class ClockNode : public Node
{
public:
    /// @p network must outlive the node.
    explicit ClockNode(Network& network);

    void step(simulation::Time now) override;

private:
    Network& m_network;
    Beat m_beat{std::chrono::milliseconds(100)};
};

} // namespace robot

#endif
