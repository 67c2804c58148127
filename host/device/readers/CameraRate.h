// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_CAMERARATE_H
#define HOST_DEVICE_READERS_CAMERARATE_H

#include "host/device/readers/RateMeter.h"

#include <QObject>
#include <QTimer>

namespace host::device::readers {

/// The rate at which the camera's frames arrive, measured here: what the robot says of its camera
/// does not tell what the link lets through.
class CameraRate : public QObject
{
    Q_OBJECT

public:
    CameraRate();

    /// A frame arrived.
    void count();
    /// The link is over: the rate is 0 at once, not when the frames are missed.
    void reset();

Q_SIGNALS:
    /// Frames a second; 0 when they stopped.
    void changed(unsigned int rate);

private:
    void measure();
    void setRate(unsigned int rate);

    RateMeter m_meter;
    QTimer m_timer; // runs only while frames arrive
    unsigned int m_rate = 0;
};

} // namespace host::device::readers

#endif
