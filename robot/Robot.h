// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_ROBOT_H
#define ROBOT_ROBOT_H

#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/server/Limits.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

namespace robot::simulation {
class Simulation;
} // namespace robot::simulation

namespace robot::nodes {
class LaserNode;
class Node;
} // namespace robot::nodes

namespace robot {

/// The simulated robot behind its rosbridge endpoint: advances its world as time passes, and lets
/// its parts publish what comes of it. Wakes up less often while nobody is connected. Needs an
/// event loop and nothing else; there may be several in one process.
class Robot : public QObject
{
    Q_OBJECT

public:
    /// The same @p seed gives the same world.
    explicit Robot(quint32 seed, const rosbridge::server::Limits& limits = network::robotLimits(),
                   QObject* parent = nullptr);
    ~Robot() override;

    quint32 seed() const { return m_seed; }

    /// Lets a recording take the laser's place, see LaserNode::setLog().
    bool setLaserLog(const QString& file, double rate, QStringList* problems, QString* error);

    /// See Network.
    void setAllowedOrigins(const QStringList& origins) { m_network.setAllowedOrigins(origins); }
    bool listen(const rosbridge::protocol::Address& address, QString* error)
    {
        return m_network.listen(address, error);
    }
    quint16 port() const { return m_network.port(); }
    void close() { m_network.close(); }

private:
    void step();
    void setPace();

    quint32 m_seed;
    network::Clock m_clock;
    std::unique_ptr<simulation::Simulation> m_simulation;
    std::vector<std::unique_ptr<nodes::Node>>
        m_nodes;                         // before the network: its last clients command them
    nodes::LaserNode* m_laser = nullptr; // one of the nodes
    network::Network m_network;
    QTimer m_timer;
};

} // namespace robot

#endif
