#include "robot/nodes/ArmNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/ArmMessages.h"
#include "robot/nodes/Messages.h"

#include <utility>

namespace robot::nodes {

using simulation::Arm;

namespace {

const QString& jointStates()
{
    static const QString name = QStringLiteral("/joint_states");
    return name;
}

const QString& armState()
{
    static const QString name = QStringLiteral("/arm/state");
    return name;
}

} // namespace

ArmNode::ArmNode(network::Network& network) : m_network(network)
{
    network.topics().addPublished(jointStates(), QStringLiteral("sensor_msgs/JointState"));
    network.topics().addPublished(armState(),
                                  QStringLiteral("control_msgs/JointTrajectoryControllerState"));
    network.topics().addCommand(
        QStringLiteral("/arm/command"), QStringLiteral("trajectory_msgs/JointTrajectory"),
        rosbridge::server::Access::RequiresControl,
        [this](const rosbridge::server::Peer&, const QCborMap& msg) { return move(msg); });
    addSwitch(QStringLiteral("/arm/torque"), m_arm.isTorqueEnabled(),
              [this](bool isOn) { return m_arm.setTorqueEnabled(isOn); });
    for (int line = 0; line < Arm::lineCount; ++line) {
        addSwitch(QStringLiteral("/arm/line%1").arg(line), m_arm.isLineEnabled(line),
                  [this, line](bool isOn) { return m_arm.setLineEnabled(line, isOn); });
    }
    QObject::connect(&network.control(), &network::Control::released, &m_context,
                     [this] { stop(); });
}

void ArmNode::step(simulation::Time now)
{
    m_arm.step(now - std::exchange(m_now, now));
    if (m_beat.isDue(now))
        publishState();
}

/// @p name is the service's; @p set is what it does.
void ArmNode::addSwitch(const QString& name, bool isOn, const std::function<Answer(bool)>& set)
{
    const QString topic = name + QStringLiteral("_enabled");
    const auto publish = [this, topic](bool isOn) { m_network.publish(topic, boolMessage(isOn)); };
    const auto call = [this, publish, set](const rosbridge::server::Peer&, const QCborMap& args) {
        const QCborValue data = args.value(QStringLiteral("data"));
        if (!data.isBool())
            return rosbridge::server::ServiceReply::failure(tr("data must be true or false"));
        const Answer answer = set(data.toBool());
        report(answer);
        publish(data.toBool());
        return rosbridge::server::ServiceReply{{{QStringLiteral("success"), answer.success},
                                                {QStringLiteral("message"), answer.message}},
                                               QString()};
    };
    m_network.topics().addLatched(topic, QStringLiteral("std_msgs/Bool"));
    publish(isOn);
    m_network.services().add(name, {QStringLiteral("std_srvs/SetBool"),
                                    {QStringLiteral("data")},
                                    rosbridge::server::Access::RequiresControl,
                                    call});
}

/// Returns why the command was not obeyed; empty if it was.
QString ArmNode::move(const QCborMap& trajectory)
{
    QString error;
    const auto movements = toMovements(trajectory, &error);
    const Answer answer = movements ? m_arm.move(*movements) : Answer{false, error};
    report(answer);
    return answer.success ? QString() : answer.message;
}

void ArmNode::stop()
{
    if (m_arm.stop())
        report({true, tr("control was given back: the arm stops")});
}

void ArmNode::report(const Answer& answer)
{
    m_network.log().write(answer.success ? network::Log::Level::Info : network::Log::Level::Warning,
                          QStringLiteral("manipulator"), answer.message);
}

void ArmNode::publishState()
{
    const simulation::Header header{m_seq++, m_now, QString()};
    if (m_network.hasSubscribers(jointStates()))
        m_network.publish(jointStates(), jointStateMessage(header, m_arm));
    if (m_network.hasSubscribers(armState()))
        m_network.publish(armState(), controllerStateMessage(header, m_arm));
}

} // namespace robot::nodes
