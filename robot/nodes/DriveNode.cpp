// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/DriveNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/RosMessages.h"
#include "robot/simulation/DriveBase.h"
#include "robot/simulation/World.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

namespace robot::nodes {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

DriveNode::DriveNode(network::Network& network, simulation::DriveBase& driveBase)
    : m_network(network),
      m_log(network.log(), QStringLiteral("base")),
      m_driveBase(driveBase)
{
    network.topics().addPublished(topic::odometry.name, topic::odometry.type);
    network.topics().addLatched(topic::driveDisabled.name, topic::driveDisabled.type);
    network.topics().addLatched(topic::footprint.name, topic::footprint.type);
    network.topics().addCommand(
        topic::velocityCommand.name, topic::velocityCommand.type,
        rosbridge::server::Access::RequiresControl,
        [this](const rosbridge::server::Peer&, const QCborMap& msg) { return command(msg); });
    network.services().add(
        service::disableDrive.name,
        {service::disableDrive.type,
         {QStringLiteral("data")},
         rosbridge::server::Access::RequiresControl,
         [this](const rosbridge::server::Peer&, const QCborMap& args) { return disable(args); }});
    QObject::connect(&network.control(), &network::Control::released,
                     [&driveBase] { driveBase.endCommand(); });
    QObject::connect(&network.stop(), &network::Stop::engaged, [&driveBase] { driveBase.stop(); });
    publishDisabled();
    m_network.publish(topic::footprint.name,
                      circleMessage({0, {}, QString(simulation::DriveBase::baseFrameId)},
                                    simulation::World::robotRadius));
}

void DriveNode::step(simulation::Time now)
{
    if (!m_beat.isDue(now) || !m_network.hasSubscribers(topic::odometry.name))
        return;
    simulation::Odometry odometry = m_driveBase.odometry();
    odometry.header.seq = m_seq++;
    m_network.publish(topic::odometry.name, toMessage(odometry));
}

QString DriveNode::command(const QCborMap& msg)
{
    QString error = m_network.stop().refusal();
    if (!error.isEmpty())
        return error;
    const std::optional<simulation::Twist> twist = toTwist(msg, &error);
    if (twist)
        m_driveBase.command(*twist, &error);
    return error;
}

rosbridge::server::ServiceReply DriveNode::disable(const QCborMap& args)
{
    const QCborValue data = args.value(QLatin1String("data"));
    if (!data.isBool())
        return rosbridge::server::ServiceReply::failure(
            tr("data must be true, to stand still, or false, to move again"));
    m_driveBase.setEnabled(!data.toBool());
    publishDisabled();
    const QString message = m_network.stop().qualified(
        data.toBool() ? tr("the drive is disabled, the robot stands still")
                      : tr("the drive is enabled"));
    m_log.write(network::Log::Level::Info, message);
    return {{{QStringLiteral("success"), true}, {QStringLiteral("message"), message}}, QString()};
}

void DriveNode::publishDisabled()
{
    m_network.publish(topic::driveDisabled.name, boolMessage(!m_driveBase.isEnabled()));
}

} // namespace robot::nodes
