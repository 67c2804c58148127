// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_ROBOTFEED_H
#define HOST_WORKBENCH_ROBOTVIEW_ROBOTFEED_H

#include "host/workbench/robotview/RobotState.h"

#include <QObject>

#include <array>
#include <vector>

namespace host::device {
class Device;
}

namespace host::workbench::robotview {

/// Keeps a robot's state new while somebody looks: follows the topics that the robot offers, and
/// has it asked for those that it does not offer yet when somebody begins to look.
class RobotFeed : public QObject
{
    Q_OBJECT

public:
    using Topics = std::vector<RobotState::Topic>;

    /// Keeps that new which @p topics tell. @p device outlives the feed. Not active at first.
    RobotFeed(device::Device& device, Topics topics, QObject* parent);
    ~RobotFeed() override;

    /// While it is not active it follows nothing.
    void setActive(bool active);

    const RobotState& state() const { return m_state; }

Q_SIGNALS:
    /// The state changed; with each message, which may be hundreds of times a second.
    void changed();

private:
    void onConnectionState(int state);
    void takeJoints();
    void arrange();
    void follow(RobotState::Topic topic);
    void onScan(const olm::core::LaserScanMessage& scan);
    void onScanRefused(const QString& fault);
    void leaveAll();

    device::Device& m_device;
    const Topics m_topics;
    RobotState m_state;
    std::array<int, RobotState::TopicCount> m_followers{}; // 0 where a topic is not followed
    bool m_isActive = false;
};

} // namespace host::workbench::robotview

#endif
