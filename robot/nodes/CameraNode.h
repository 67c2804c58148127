// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_CAMERANODE_H
#define ROBOT_NODES_CAMERANODE_H

#include "robot/nodes/Node.h"
#include "robot/simulation/Camera.h"
#include "rosbridge/server/ServiceRegistry.h"

#include <QCborMap>
#include <QCoreApplication>

namespace robot::network {
class Network;
} // namespace robot::network

namespace robot::nodes {

/// The camera: a CameraInfo for each frame, and the resolution that can be picked.
class CameraNode : public Node
{
    Q_DECLARE_TR_FUNCTIONS(robot::nodes::CameraNode)

public:
    /// @p network must stay as long as clients may come.
    explicit CameraNode(network::Network& network);

    void step(simulation::Time now) override;

private:
    rosbridge::server::ServiceReply setParameters(const QCborMap& args);
    QString modeIn(const QCborMap& config, QString* error) const;
    QCborMap config() const;

    network::Network& m_network;
    simulation::Camera m_camera;
    simulation::Time m_now{0};
};

} // namespace robot::nodes

#endif
