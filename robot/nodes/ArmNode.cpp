// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/ArmNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/ArmMessages.h"
#include "robot/nodes/RosMessages.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <utility>

namespace robot::nodes {

using simulation::Arm;
namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

ArmNode::ArmNode(network::Network& network)
    : m_network(network),
      m_log(network.log(), QStringLiteral("manipulator"))
{
    network.topics().addPublished(topic::jointStates.name, topic::jointStates.type);
    network.topics().addPublished(topic::armState.name, topic::armState.type);
    network.topics().addCommand(
        topic::armCommand.name, topic::armCommand.type, rosbridge::server::Access::RequiresControl,
        [this](const rosbridge::server::Peer&, const QCborMap& msg) { return move(msg); });
    addSwitch(service::armTorque, topic::armTorqueEnabled, m_arm.isTorqueEnabled(),
              [this](bool isOn) { return m_arm.setTorqueEnabled(isOn); });
    for (int line = 0; line < Arm::lineCount; ++line) {
        const auto index = static_cast<std::size_t>(line);
        addSwitch(service::armLine.at(index), topic::armLineEnabled.at(index),
                  m_arm.isLineEnabled(line),
                  [this, line](bool isOn) { return m_arm.setLineEnabled(line, isOn); });
    }
    QObject::connect(&network.control(), &network::Control::released, &m_context,
                     [this] { stop(tr("control was released: the arm stops")); });
    QObject::connect(&network.stop(), &network::Stop::engaged, &m_context,
                     [this] { stop(tr("the robot is stopped: the arm holds where it is")); });
}

void ArmNode::step(simulation::Time now)
{
    m_arm.step(now - std::exchange(m_now, now));
    if (m_beat.isDue(now))
        publishState();
}

/// @p set is what the service does.
void ArmNode::addSwitch(const rosbridge::protocol::Service& service,
                        const rosbridge::protocol::Topic& topic, bool isOn,
                        const std::function<Answer(bool)>& set)
{
    const auto publish = [this, topic](bool isOn) {
        m_network.publish(topic.name, boolMessage(isOn));
    };
    const auto call = [this, publish, set](const rosbridge::server::Peer&, const QCborMap& args) {
        const QCborValue data = args.value(QStringLiteral("data"));
        if (!data.isBool())
            return rosbridge::server::ServiceReply::failure(tr("data must be true or false"));
        Answer answer = set(data.toBool());
        answer.message = m_network.stop().qualified(answer.message);
        report(answer);
        publish(data.toBool());
        return rosbridge::server::ServiceReply{{{QStringLiteral("success"), answer.success},
                                                {QStringLiteral("message"), answer.message}},
                                               QString()};
    };
    m_network.topics().addLatched(topic.name, topic.type);
    publish(isOn);
    m_network.services().add(
        service.name,
        {service.type, {QStringLiteral("data")}, rosbridge::server::Access::RequiresControl, call});
}

/// Returns why the command was not obeyed; empty if it was.
QString ArmNode::move(const QCborMap& trajectory)
{
    const Answer answer = answerTo(trajectory);
    report(answer);
    return answer.success ? QString() : answer.message;
}

ArmNode::Answer ArmNode::answerTo(const QCborMap& trajectory)
{
    QString error = m_network.stop().refusal();
    if (!error.isEmpty())
        return {false, error};
    const auto movements = toMovements(trajectory, &error);
    return movements ? m_arm.move(*movements) : Answer{false, error};
}

void ArmNode::stop(const QString& why)
{
    if (m_arm.stop())
        report({true, why});
}

void ArmNode::report(const Answer& answer)
{
    m_log.write(answer.success ? network::Log::Level::Info : network::Log::Level::Warning,
                answer.message);
}

void ArmNode::publishState()
{
    const simulation::Header header{m_seq++, m_now, QString()};
    if (m_network.hasSubscribers(topic::jointStates.name))
        m_network.publish(topic::jointStates.name, jointStateMessage(header, m_arm));
    if (m_network.hasSubscribers(topic::armState.name))
        m_network.publish(topic::armState.name, controllerStateMessage(header, m_arm));
}

} // namespace robot::nodes
