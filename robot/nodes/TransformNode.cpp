// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/TransformNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/RosMessages.h"
#include "robot/simulation/Camera.h"
#include "robot/simulation/DriveBase.h"
#include "robot/simulation/FloorPlan.h"
#include "robot/simulation/Laser.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborArray>

namespace robot::nodes {

namespace topic = rosbridge::protocol::topic;

using simulation::Camera;
using simulation::DriveBase;
using simulation::FloorPlan;
using simulation::Laser;
using simulation::Pose2D;

namespace {

/// A frame at @p height above one whose axes lie in the same plane.
QCborMap frame(const char* parent, const char* child, const Pose2D& pose, double height,
               simulation::Time stamp)
{
    return transformMessage({0, stamp, QLatin1String(parent)}, QLatin1String(child), pose.x, pose.y,
                            height, turn(pose.theta));
}

} // namespace

TransformNode::TransformNode(network::Network& network, const DriveBase& driveBase)
    : m_network(network),
      m_driveBase(driveBase)
{
    network.topics().addPublished(topic::transforms.name, topic::transforms.type);
}

void TransformNode::step(simulation::Time now)
{
    if (!m_beat.isDue(now) || !m_network.hasSubscribers(topic::transforms.name))
        return;
    const char* const base = DriveBase::baseFrameId;
    // Looking forwards, a camera's optical frame has z ahead, x to the right and y down.
    const Quaternion optical{-0.5, 0.5, -0.5, 0.5};
    const QCborArray transforms{
        frame(FloorPlan::frameId, DriveBase::odometryFrameId, FloorPlan::robotStart, 0.0, now),
        frame(DriveBase::odometryFrameId, base, m_driveBase.odometry().pose, 0.0, now),
        frame(base, Laser::frameId, Laser::mount, Laser::mountHeight, now),
        transformMessage({0, now, QLatin1String(base)}, QLatin1String(Camera::frameId),
                         Camera::mount.x, Camera::mount.y, Camera::mountHeight, optical)};
    m_network.publish(topic::transforms.name, {{QStringLiteral("transforms"), transforms}});
}

} // namespace robot::nodes
