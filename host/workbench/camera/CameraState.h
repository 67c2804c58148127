// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_CAMERA_CAMERASTATE_H
#define HOST_WORKBENCH_CAMERA_CAMERASTATE_H

#include "host/device/connection/Offer.h"
#include "host/device/readers/RateMeter.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QImage>
#include <QString>

#include <chrono>

namespace host::workbench::camera {

/// The newest picture of a robot's camera, how often they come, and why there is none. It has no
/// clock of its own.
class CameraState
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::camera::CameraState)

public:
    using Clock = std::chrono::steady_clock;
    using TimePoint = Clock::time_point;
    using Offered = device::connection::Offer::State;

    /// A link begins: the picture of another robot is forgotten.
    void begin();
    /// The link is over. The picture stays.
    void end() { m_isConnected = false; }

    bool isConnected() const { return m_isConnected; }

    /// Whether the robot offers pictures, what it calls their topic, and of which type that is.
    void setOffered(Offered offered, const QString& name, const QString& type);

    /// A message came; not all of them are read.
    void arrived(TimePoint now) { m_meter.arrived(now); }
    /// Takes the picture of the message, which came at @p arrival. One that cannot be read leaves
    /// the picture as it is, which then grows old.
    void read(const QCborMap& message, TimePoint arrival);

    /// Null until there is one.
    const QImage& picture() const { return m_picture; }

    /// Whether the picture shows what is no more: it is shown all the same.
    bool isOld(TimePoint now) const;

    /// A sentence for what is missing or wrong; empty where the newest picture is shown.
    QString problem(TimePoint now) const;

    /// The picture's size, the rate at which pictures come, and its age; empty without a picture.
    QString caption(TimePoint now) const;

private:
    QString age(TimePoint now) const;

    bool m_isConnected = false;
    Offered m_offered = Offered::Unknown;
    QString m_name;
    QString m_type;
    QImage m_picture;
    TimePoint m_arrival; // of the picture
    QString m_fault;     // of the newest message that was read
    device::readers::RateMeter m_meter;
};

} // namespace host::workbench::camera

#endif
