// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_SENSORS_H
#define HOST_DEVICE_SENSORS_H

#include "host/device/readers/ArmPose.h"
#include "host/device/readers/CameraInfo.h"
#include "host/device/readers/CameraRate.h"
#include "host/device/readers/ScanReader.h"
#include "olm/core/LaserScanMessage.h"

#include <QObject>
#include <QString>

namespace host::device::connection {
class ArmJoints;
class Listener;
} // namespace host::device::connection

namespace host::device {

/// What a robot's laser, arm and camera tell. Each message is read once, for the variables and for
/// all who show it; one of the wrong shape changes nothing, and the listener says so.
class Sensors : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the sensors. @p joints say which joints are the arm's, and are told of all.
    Sensors(connection::Listener& listener, connection::ArmJoints& joints);

    /// Where the arm is; nothing until each of its axes was told.
    std::optional<readers::ArmPose::Axes> armPose() const;

    /// The link is over.
    void reset();

Q_SIGNALS:
    void scanned(const olm::core::LaserScanMessage& scan);
    /// A scan came that is none: what is wrong with which field.
    void scanRefused(const QString& fault);
    void pictureTaken(const host::device::readers::CameraInfo& picture);
    /// Frames a second.
    void cameraRateChanged(unsigned int rate);

private:
    QString readScan(const QCborMap& message);
    QString readCamera(const QCborMap& message);
    QString readJoints(const QCborMap& message);
    QString readTargets(const QCborMap& message);

    connection::ArmJoints& m_joints;

    readers::ScanReader m_scanReader;
    readers::ArmPose m_armPose;
    readers::CameraRate m_cameraRate;
};

} // namespace host::device

#endif
