// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_ARMNODE_H
#define ROBOT_NODES_ARMNODE_H

#include "robot/network/LogWriter.h"
#include "robot/nodes/Beat.h"
#include "robot/nodes/Node.h"
#include "robot/simulation/Arm.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QObject>

#include <functional>

namespace rosbridge::protocol {
struct Service;
struct Topic;
} // namespace rosbridge::protocol

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::nodes {

/// The arm as clients know it: where its axes are and where they go, thirty times a second, the
/// command to move them, and a service and a latched topic for each of its switches. It stops when
/// the robot is stopped, and when the client that moves it gives control back.
class ArmNode : public Node
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::ArmNode)

public:
    /// @p network must outlive the node.
    explicit ArmNode(network::Network& network);

    void step(simulation::Time now) override;

private:
    using Answer = simulation::Arm::Answer;

    void addSwitch(const rosbridge::protocol::Service& service,
                   const rosbridge::protocol::Topic& topic, bool isOn,
                   const std::function<Answer(bool)>& set);
    QString move(const QCborMap& trajectory);
    Answer answerTo(const QCborMap& trajectory);
    void stop(const QString& why);
    void report(const Answer& answer);
    void publishState();

    network::Network& m_network;
    network::LogWriter m_log;
    simulation::Arm m_arm;
    simulation::Time m_now{0};
    Beat m_beat{std::chrono::nanoseconds(std::chrono::seconds(1)) / 30};
    quint32 m_seq = 0;
    QObject m_context; // what is connected ends with the node
};

} // namespace robot::nodes

#endif
