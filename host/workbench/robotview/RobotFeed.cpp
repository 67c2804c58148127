// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/RobotFeed.h"

#include "host/device/Device.h"

#include <utility>

namespace host::workbench::robotview {

using device::connection::ArmJoints;
using device::connection::Connection;
using device::connection::Offer;
using Topic = RobotState::Topic;

RobotFeed::RobotFeed(device::Device& device, Topics topics, QObject* parent)
    : QObject(parent),
      m_device(device),
      m_topics(std::move(topics))
{
    connect(&device.offer(), &Offer::changed, this, &RobotFeed::arrange);
    connect(&device.offer(), &Offer::ready, this, &RobotFeed::arrange);
    connect(&device, &device::Device::connectionStateChanged, this, &RobotFeed::onConnectionState);
    connect(&device.sensors(), &device::Sensors::scanned, this, &RobotFeed::onScan);
    connect(&device.sensors(), &device::Sensors::scanRefused, this, &RobotFeed::onScanRefused);
    connect(&device.joints(), &ArmJoints::changed, this, &RobotFeed::takeJoints);
    connect(&device.joints(), &ArmJoints::told, this, &RobotFeed::takeJoints);
    takeJoints();
    onConnectionState(device.connectionState());
}

RobotFeed::~RobotFeed()
{
    leaveAll();
}

void RobotFeed::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    if (active)
        m_device.offer().askAgain();
    arrange();
}

void RobotFeed::onConnectionState(int state)
{
    const bool isConnected = state >= Connection::connected;
    if (isConnected == m_state.isConnected())
        return;
    if (isConnected)
        m_state.begin();
    else
        m_state.end(RobotState::Clock::now());
    arrange();
    Q_EMIT changed();
}

void RobotFeed::takeJoints()
{
    m_state.setJoints(m_device.joints().table(), m_device.joints().notShown());
    Q_EMIT changed();
}

/// A robot that cannot tell what it offers is taken to offer all.
void RobotFeed::arrange()
{
    if (!m_isActive || !m_state.isConnected()) {
        leaveAll();
        return;
    }
    const Offer& offer = m_device.offer();
    if (!offer.isReady())
        return;
    for (const Topic topic : m_topics) {
        const QString name = RobotState::info(topic).topic.name;
        const Offer::State found = offer.state(name);
        const bool isOffered = found != Offer::State::Missing && found != Offer::State::OtherType;
        m_state.setName(topic, m_device.remappings().theirs(name));
        m_state.setPublished(topic, isOffered, RobotState::Clock::now());
        if (isOffered && topic != RobotState::Scan) // which the device follows and reads
            follow(topic);
    }
    Q_EMIT changed();
}

void RobotFeed::follow(Topic topic)
{
    int& follower = m_followers.at(topic);
    if (follower != 0)
        return;
    const RobotState::TopicInfo& info = RobotState::info(topic);
    follower = m_device.connection().follow(
        info.topic.name, info.topic.type,
        [this, topic](const QCborMap& message) {
            m_state.read(topic, message, RobotState::Clock::now());
            Q_EMIT changed();
        },
        info.throttle);
}

void RobotFeed::onScan(const olm::core::LaserScanMessage& scan)
{
    if (!m_isActive)
        return;
    m_state.readScan(scan, RobotState::Clock::now());
    Q_EMIT changed();
}

void RobotFeed::onScanRefused(const QString& fault)
{
    if (!m_isActive)
        return;
    m_state.refuse(RobotState::Scan, fault);
    Q_EMIT changed();
}

void RobotFeed::leaveAll()
{
    for (int& follower : m_followers)
        m_device.connection().unfollow(std::exchange(follower, 0));
}

} // namespace host::workbench::robotview
