// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/ClockNode.h"

#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "rosbridge/protocol/Topics.h"

namespace robot::nodes {

namespace topic = rosbridge::protocol::topic;

ClockNode::ClockNode(network::Network& network, const network::Clock& clock)
    : m_network(network),
      m_clock(clock)
{
    network.topics().addPublished(topic::clock.name, topic::clock.type);
}

void ClockNode::step(simulation::Time /*now*/)
{
    if (m_network.hasSubscribers(topic::clock.name))
        m_network.publish(topic::clock.name,
                          {{QStringLiteral("clock"), network::Clock::stamp(m_clock.now())}});
}

} // namespace robot::nodes
