#include "robot/nodes/ClockNode.h"

#include "robot/Clock.h"
#include "robot/Network.h"

namespace robot {

namespace {

const QString& topic()
{
    static const QString name = QStringLiteral("/clock");
    return name;
}

} // namespace

ClockNode::ClockNode(Network& network, const Clock& clock) : m_network(network), m_clock(clock)
{
    network.topics().addPublished(topic(), QStringLiteral("rosgraph_msgs/Clock"));
}

void ClockNode::step(simulation::Time now)
{
    if (m_beat.isDue(now))
        m_network.publish(topic(), {{QStringLiteral("clock"), Clock::stamp(m_clock.now())}});
}

} // namespace robot
