#include "host/workbench/robotview/RobotFeed.h"

#include "host/device/Device.h"

#include <QCborArray>
#include <QPointer>
#include <QSet>

#include <utility>

namespace host::workbench {

using device::Connection;
using Topic = RobotState::Topic;

namespace {

constexpr std::chrono::seconds askInterval(5);

} // namespace

RobotFeed::RobotFeed(device::Device& device, QObject* parent) : QObject(parent), m_device(device)
{
    m_askTimer.setInterval(askInterval);
    connect(&m_askTimer, &QTimer::timeout, this, &RobotFeed::ask);
    connect(&device, &device::Device::connectionStateChanged, this, &RobotFeed::onConnectionState);
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

void RobotFeed::arrange()
{
    m_askTimer.stop();
    if (m_isActive && m_state.isConnected())
        ask();
    else
        leaveAll();
}

void RobotFeed::ask()
{
    const QPointer<RobotFeed> self(this);
    m_device.connection().call(QStringLiteral("/rosapi/topics"), {},
                               [self](const robot::link::Client::Result& result) {
                                   if (self)
                                       self->onTopics(result);
                               });
}

/// A robot that cannot tell its topics is taken at its word on each of them.
void RobotFeed::onTopics(const robot::link::Client::Result& result)
{
    if (!m_isActive || !m_state.isConnected())
        return;
    QSet<QString> names;
    const QCborArray topics = result.values.value(QLatin1String("topics")).toArray();
    for (const QCborValue name : topics)
        names.insert(name.toString());
    bool isComplete = true;
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto topic = static_cast<Topic>(i);
        const bool isPublished =
            !result.ok || names.contains(QLatin1String(RobotState::info(topic).name));
        m_state.setPublished(topic, isPublished, RobotState::Clock::now());
        isComplete = isComplete && isPublished;
        if (isPublished)
            follow(topic);
    }
    if (isComplete)
        m_askTimer.stop();
    else if (!m_askTimer.isActive())
        m_askTimer.start();
    Q_EMIT changed();
}

void RobotFeed::follow(Topic topic)
{
    int& follower = m_followers.at(topic);
    if (follower != 0)
        return;
    const RobotState::TopicInfo& info = RobotState::info(topic);
    follower = m_device.connection().follow(
        QLatin1String(info.name), QLatin1String(info.type),
        [this, topic](const QCborMap& message) {
            m_state.read(topic, message, RobotState::Clock::now());
            Q_EMIT changed();
        },
        info.throttle);
}

void RobotFeed::leaveAll()
{
    for (int& follower : m_followers)
        m_device.connection().unfollow(std::exchange(follower, 0));
}

} // namespace host::workbench
