#include "robot/nodes/DriveNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/Messages.h"
#include "robot/simulation/DriveBase.h"

namespace robot::nodes {

namespace {

const QString& odometryTopic()
{
    static const QString name = QStringLiteral("/odom");
    return name;
}

const QString& disabledTopic()
{
    static const QString name = QStringLiteral("/drive/disabled");
    return name;
}

} // namespace

DriveNode::DriveNode(network::Network& network, simulation::DriveBase& driveBase)
    : m_network(network),
      m_driveBase(driveBase)
{
    network.topics().addPublished(odometryTopic(), QStringLiteral("nav_msgs/Odometry"));
    network.topics().addLatched(disabledTopic(), QStringLiteral("std_msgs/Bool"));
    network.topics().addCommand(
        QStringLiteral("/cmd_vel"), QStringLiteral("geometry_msgs/Twist"),
        rosbridge::server::Access::RequiresControl,
        [this](const rosbridge::server::Peer&, const QCborMap& msg) { return command(msg); });
    network.services().add(
        QStringLiteral("/drive/disable"),
        {QStringLiteral("std_srvs/SetBool"),
         {QStringLiteral("data")},
         rosbridge::server::Access::RequiresControl,
         [this](const rosbridge::server::Peer&, const QCborMap& args) { return disable(args); }});
    QObject::connect(&network.control(), &network::Control::released,
                     [&driveBase] { driveBase.endCommand(); });
    publishDisabled();
}

void DriveNode::step(simulation::Time now)
{
    if (!m_beat.isDue(now) || !m_network.hasSubscribers(odometryTopic()))
        return;
    simulation::Odometry odometry = m_driveBase.odometry();
    odometry.header.seq = m_seq++;
    m_network.publish(odometryTopic(), toMessage(odometry));
}

QString DriveNode::command(const QCborMap& msg)
{
    QString error;
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
    const QString message = data.toBool() ? tr("the drive is disabled, the robot stands still")
                                          : tr("the drive is enabled");
    m_network.log().write(network::Log::Level::Info, QStringLiteral("base"), message);
    return {{{QStringLiteral("success"), true}, {QStringLiteral("message"), message}}, QString()};
}

void DriveNode::publishDisabled()
{
    m_network.publish(disabledTopic(), boolMessage(!m_driveBase.isEnabled()));
}

} // namespace robot::nodes
