// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/camera/CameraFeed.h"

#include "host/device/Device.h"
#include "rosbridge/protocol/Topics.h"

#include <algorithm>
#include <utility>

namespace host::workbench::camera {

using device::connection::Connection;
using device::connection::Offer;
using rosbridge::protocol::topic::cameraImage;

namespace {

using namespace std::chrono_literals;

constexpr auto shortestPause = 33ms;
constexpr int pauseFactor = 4; // of the time that a picture took: the window has other things to do

} // namespace

CameraFeed::CameraFeed(device::Device& device, QObject* parent) : QObject(parent), m_device(device)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &CameraFeed::readNewest);
    connect(&device.offer(), &Offer::changed, this, &CameraFeed::arrange);
    connect(&device.offer(), &Offer::ready, this, &CameraFeed::arrange);
    connect(&device, &device::Device::connectionStateChanged, this, &CameraFeed::onConnectionState);
    onConnectionState(device.connectionState());
}

CameraFeed::~CameraFeed()
{
    leave();
}

void CameraFeed::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    if (active)
        m_device.offer().askAgain();
    arrange();
}

void CameraFeed::onConnectionState(int state)
{
    const bool isConnected = state >= Connection::connected;
    if (isConnected == m_state.isConnected())
        return;
    if (isConnected)
        m_state.begin();
    else
        m_state.end();
    arrange();
}

void CameraFeed::arrange()
{
    if (m_isActive && m_state.isConnected())
        followOffered();
    else
        leave();
    Q_EMIT changed();
}

/// A robot that cannot tell what it offers is taken to offer all.
void CameraFeed::followOffered()
{
    if (!m_device.offer().isReady())
        return;
    const Offer::State offered = m_device.offer().state(cameraImage.name);
    m_state.setOffered(offered, m_device.remappings().theirs(cameraImage.name),
                       m_device.offer().typeOf(cameraImage.name));
    if (m_follower != 0 || offered == Offer::State::Missing || offered == Offer::State::OtherType)
        return;
    m_follower = m_device.connection().follow(cameraImage.name, cameraImage.type,
                                              [this](const QCborMap& message) {
                                                  m_newest = {message, CameraState::Clock::now()};
                                                  m_state.arrived(m_newest->time);
                                                  if (!m_pause.isActive())
                                                      readNewest();
                                              });
}

void CameraFeed::leave()
{
    m_device.connection().unfollow(std::exchange(m_follower, 0));
    m_newest.reset();
}

void CameraFeed::readNewest()
{
    if (!m_newest)
        return;
    const auto start = CameraState::Clock::now();
    m_state.read(m_newest->message, m_newest->time);
    m_newest.reset();
    const auto taken =
        std::chrono::duration_cast<std::chrono::milliseconds>(CameraState::Clock::now() - start);
    m_pause.start(std::max<std::chrono::milliseconds>(shortestPause, pauseFactor * taken));
    Q_EMIT changed();
}

} // namespace host::workbench::camera
