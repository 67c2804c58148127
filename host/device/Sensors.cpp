// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/Sensors.h"

#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "rosbridge/protocol/Topics.h"

namespace host::device {

namespace topic = rosbridge::protocol::topic;

Sensors::Sensors(connection::Listener& listener)
{
    connect(&m_cameraRate, &readers::CameraRate::changed, this, &Sensors::cameraRateChanged);
    listener.listen(topic::cameraInfo, connection::baseLogLine,
                    [this](const QCborMap& message) { return readCamera(message); });
    listener.listen(topic::scan, connection::laserLogLine,
                    [this](const QCborMap& message) { return readScan(message); });
    listener.listen(topic::jointStates, connection::manipulatorLogLine,
                    [this](const QCborMap& message) { return m_armPose.read(message); });
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

} // namespace host::device
