#include "robot/nodes/ClockNode.h"

#include "robot/network/Clock.h"
#include "robot/network/Network.h"

namespace robot::nodes {

namespace {

const QString& clockTopic()
{
    static const QString name = QStringLiteral("/clock");
    return name;
}

} // namespace

ClockNode::ClockNode(network::Network& network, const network::Clock& clock)
    : m_network(network),
      m_clock(clock)
{
    network.topics().addPublished(clockTopic(), QStringLiteral("rosgraph_msgs/Clock"));
}

void ClockNode::step(simulation::Time now)
{
    if (m_beat.isDue(now))
        m_network.publish(clockTopic(),
                          {{QStringLiteral("clock"), network::Clock::stamp(m_clock.now())}});
}

} // namespace robot::nodes
