// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/Sensors.h"

#include "host/device/connection/ArmJoints.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "rosbridge/protocol/Topics.h"

namespace host::device {

namespace topic = rosbridge::protocol::topic;

using readers::JointPositions;

Sensors::Sensors(connection::Listener& listener, connection::ArmJoints& joints) : m_joints(joints)
{
    connect(&joints, &connection::ArmJoints::changed, this, [this] { m_armPose.forget(); });
    connect(&m_cameraRate, &readers::CameraRate::changed, this, &Sensors::cameraRateChanged);
    listener.listen(topic::cameraInfo, connection::baseLogLine,
                    [this](const QCborMap& message) { return readCamera(message); });
    listener.listen(topic::scan, connection::laserLogLine,
                    [this](const QCborMap& message) { return readScan(message); });
    listener.listen(topic::jointStates, connection::manipulatorLogLine,
                    [this](const QCborMap& message) { return readJoints(message); });
    listener.listen(topic::armState, connection::manipulatorLogLine,
                    [this](const QCborMap& message) { return readTargets(message); });
}

std::optional<readers::ArmPose::Axes> Sensors::armPose() const
{
    return m_armPose.axes(m_joints.table());
}

void Sensors::reset()
{
    m_armPose.forget();
    m_cameraRate.reset();
}

QString Sensors::readScan(const QCborMap& message)
{
    QString fault;
    if (const auto scan = m_scanReader.read(message, &fault))
        Q_EMIT scanned(*scan);
    else
        Q_EMIT scanRefused(fault);
    return fault;
}

QString Sensors::readCamera(const QCborMap& message)
{
    QString fault;
    if (const auto picture = readers::CameraInfo::read(message, &fault)) {
        m_cameraRate.count();
        Q_EMIT pictureTaken(*picture);
    }
    return fault;
}

QString Sensors::readJoints(const QCborMap& message)
{
    QString fault;
    if (const auto joints = JointPositions::readPresent(message, &fault)) {
        m_joints.seePresent(joints->names);
        if (const auto axes = m_joints.table().axes(*joints, &fault))
            m_armPose.take(*axes);
    }
    return fault;
}

/// Only the names are of use here: the device does not show targets.
QString Sensors::readTargets(const QCborMap& message)
{
    QString fault;
    if (const auto joints = JointPositions::readTargets(message, &fault))
        m_joints.seeTargets(joints->names);
    return fault;
}

} // namespace host::device
