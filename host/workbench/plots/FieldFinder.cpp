// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/FieldFinder.h"

#include "host/device/Device.h"
#include "host/workbench/plots/Numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace host::workbench::plots {

using device::connection::Connection;
using device::connection::Offer;

namespace {

constexpr std::chrono::seconds patience{2};

/// Pictures, maps and clouds: their messages are large, and have no number worth it.
bool isLarge(const QString& type)
{
    static const std::array large{
        QLatin1String("map_msgs/OccupancyGridUpdate"), QLatin1String("nav_msgs/OccupancyGrid"),
        QLatin1String("sensor_msgs/CompressedImage"),  QLatin1String("sensor_msgs/Image"),
        QLatin1String("sensor_msgs/PointCloud"),       QLatin1String("sensor_msgs/PointCloud2"),
    };
    return std::find(large.begin(), large.end(), type) != large.end();
}

} // namespace

FieldFinder::FieldFinder(device::Device& device, QObject* parent)
    : QObject(parent),
      m_device(device)
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(patience);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        m_silent.insert(m_topic);
        leave();
        lookAtNext();
    });
    connect(&device.offer(), &Offer::changed, this, &FieldFinder::arrange);
    connect(&device.offer(), &Offer::ready, this, &FieldFinder::arrange);
    connect(&device, &device::Device::connectionStateChanged, this,
            &FieldFinder::onConnectionState);
    onConnectionState(device.connectionState());
}

FieldFinder::~FieldFinder()
{
    leave();
}

void FieldFinder::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    m_silent.clear();
    if (active)
        m_device.offer().ask(); // what was started meanwhile
    arrange();
}

void FieldFinder::onConnectionState(int state)
{
    const bool isConnected = state >= Connection::connected;
    if (isConnected == m_isConnected)
        return;
    m_isConnected = isConnected;
    if (isConnected) {
        m_fields.clear(); // of another robot, maybe
        m_silent.clear();
    }
    arrange();
}

void FieldFinder::arrange()
{
    if (m_isActive && m_isConnected && m_device.offer().isReady())
        lookAtNext();
    else
        leave();
    Q_EMIT changed();
}

void FieldFinder::lookAtNext()
{
    if (m_follower != 0)
        return;
    const QMap<QString, QString> topics = m_device.offer().topics();
    for (auto topic = topics.cbegin(); topic != topics.cend(); ++topic) {
        if (m_fields.contains(topic.key()) || m_silent.contains(topic.key()) ||
            isLarge(topic.value()))
            continue;
        m_topic = topic.key();
        m_deadline.start();
        m_follower = m_device.connection().follow(
            topic.key(), topic.value(), [this](const QCborMap& message) { take(message); });
        return;
    }
}

void FieldFinder::take(const QCborMap& message)
{
    m_fields.insert(m_topic, numbersIn(message));
    leave();
    QTimer::singleShot(0, this, &FieldFinder::arrange);
}

void FieldFinder::leave()
{
    m_deadline.stop();
    m_device.connection().unfollow(std::exchange(m_follower, 0));
}

} // namespace host::workbench::plots
