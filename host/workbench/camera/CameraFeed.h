// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_CAMERA_CAMERAFEED_H
#define HOST_WORKBENCH_CAMERA_CAMERAFEED_H

#include "host/workbench/camera/CameraState.h"

#include <QObject>
#include <QTimer>

#include <optional>

namespace host::device {
class Device;
}

namespace host::workbench::camera {

/// Follows the pictures of a device's robot while somebody looks. Decoding takes the window's time:
/// only the newest picture is, at most 30 times a second, and less often where it takes long.
class CameraFeed : public QObject
{
    Q_OBJECT

public:
    /// @p device outlives the feed. Not active at first.
    CameraFeed(device::Device& device, QObject* parent);
    ~CameraFeed() override;

    /// While it is not active it follows nothing.
    void setActive(bool active);

    const CameraState& state() const { return m_state; }

Q_SIGNALS:
    /// There is another picture, or another problem.
    void changed();

private:
    struct Arrived
    {
        QCborMap message;
        CameraState::TimePoint time;
    };

    void onConnectionState(int state);
    void arrange();
    void followOffered();
    void leave();
    void readNewest();

    device::Device& m_device;
    CameraState m_state;
    bool m_isActive = false;
    int m_follower = 0;              // 0 while the topic is not followed
    std::optional<Arrived> m_newest; // that was not read yet
    QTimer m_pause{this};            // after each picture
};

} // namespace host::workbench::camera

#endif
