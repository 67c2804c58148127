// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_CAMERANODE_H
#define ROBOT_NODES_CAMERANODE_H

#include "robot/network/LogWriter.h"
#include "robot/nodes/Node.h"
#include "robot/simulation/Camera.h"
#include "rosbridge/server/ServiceRegistry.h"

#include <QCborMap>
#include <QCoreApplication>

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::simulation {
class World;
} // namespace robot::simulation

namespace robot::nodes {

/// The camera: a picture and a CameraInfo for each frame, each while somebody subscribes to it, and
/// the resolution that can be picked.
class CameraNode : public Node
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::CameraNode)

public:
    /// Both must stay as long as clients may come.
    CameraNode(network::Network& network, const simulation::World& world);

    void step(simulation::Time now) override;

private:
    void publishPicture(const simulation::CameraInfo& info);
    rosbridge::server::ServiceReply setParameters(const QCborMap& args);
    QString modeIn(const QCborMap& config, QString* error) const;
    QCborMap config() const;

    network::Network& m_network;
    network::LogWriter m_log;
    const simulation::World& m_world;
    simulation::Camera m_camera;
    simulation::Time m_now{0};
    bool m_hasFailed = false; // to encode a picture; told once
};

} // namespace robot::nodes

#endif
