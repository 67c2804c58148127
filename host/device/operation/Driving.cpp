// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/operation/Driving.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Offer.h"
#include "host/device/operation/Stopping.h"
#include "host/device/readers/BoolReader.h"
#include "rosbridge/protocol/Topics.h"

#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace host::device::operation {

using connection::Connection;
using connection::Offer;
namespace topic = rosbridge::protocol::topic;

namespace {

using namespace std::chrono_literals;

constexpr auto longestSilence = 1s;
constexpr auto odometryInterval = 200ms;
constexpr auto checkInterval = 10ms;

const QString linearField = QStringLiteral("linear");
const QString angularField = QStringLiteral("angular");

Velocity bounded(const Velocity& limits)
{
    return {std::clamp(limits.linear, Driving::slowest.linear, Driving::fastest.linear),
            std::clamp(limits.angular, Driving::slowest.angular, Driving::fastest.angular)};
}

/// What is wrong with a file's entries, or nothing.
QString faultOfLimits(const QJsonObject& entries)
{
    for (const QString& field : {linearField, angularField}) {
        if (entries.contains(field) && !entries.value(field).isDouble())
            return Driving::tr("the entry \"%1\" is not a number").arg(field);
    }
    return {};
}

} // namespace

Driving::Driving(Connection& connection, const Offer& offer, const Stopping& stopping)
    : m_connection(connection),
      m_offer(offer),
      m_stopping(stopping)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(checkInterval);
    connect(&m_timer, &QTimer::timeout, this, &Driving::check);
    connect(&stopping, &Stopping::pressed, this, [this] { end(tr("Stop was pressed.")); });
    connect(&stopping, &Stopping::changed, this, &Driving::check);
    connect(&offer, &Offer::changed, this, &Driving::check);
    connect(&connection, &Connection::stateChanged, this, [this](int state) {
        if (state == Connection::notConnected)
            m_isDriveDisabled = false; // as far as anybody knows
        check();
    });
    connect(&connection, &Connection::publicationRefused, this,
            [this](const QString& name, const QString& words) {
                if (name == topic::velocityCommand.name)
                    end(words);
            });
    connection.follow(
        topic::driveDisabled.name, topic::driveDisabled.type, [this](const QCborMap& message) {
            QString fault; // which is said elsewhere
            m_isDriveDisabled = readers::readBool(message, &fault).value_or(m_isDriveDisabled);
            check();
        });
}

QString Driving::load(const QString& folder, const QString& deviceName)
{
    m_file.emplace(folder, deviceName, QStringLiteral(".drive"), &faultOfLimits);
    QString problem = m_file->load();
    const QJsonObject entries = m_file->entries();
    m_limits = bounded({entries.value(linearField).toDouble(m_limits.linear),
                        entries.value(angularField).toDouble(m_limits.angular)});
    return problem;
}

void Driving::setLimits(const Velocity& limits)
{
    m_limits = bounded(limits);
    if (!m_file)
        return;
    m_file->insert(linearField, m_limits.linear);
    m_file->insert(angularField, m_limits.angular);
    const QString words = m_file->save();
    if (!words.isEmpty())
        Q_EMIT problem(words);
}

void Driving::setReady(bool isReady)
{
    if (isReady == m_odometry.has_value())
        return;
    if (isReady)
        m_odometry = m_connection.follow(
            topic::odometry.name, topic::odometry.type, [](const QCborMap&) {}, odometryInterval);
    else
        m_connection.unfollow(*std::exchange(m_odometry, std::nullopt));
}

void Driving::hold(const Push& push)
{
    const bool isPressed = !m_hold.isHeld();
    m_hold.hold(push);
    if (!isPressed)
        return;
    m_timer.start();
    check();
    Q_EMIT changed();
}

void Driving::letGo()
{
    m_hold.letGo();
    m_end.clear();
    m_timer.stop();
    send();
    Q_EMIT changed();
}

/// Goes on unless something stands in the way.
void Driving::check()
{
    const QString obstacle = obstacleOfRobot();
    if (!obstacle.isEmpty())
        end(obstacle);
    send();
    if (!m_hold.isRunning())
        Q_EMIT changed();
}

void Driving::end(const QString& why)
{
    if (!m_hold.isRunning())
        return;
    m_hold.end();
    m_timer.stop();
    m_end = why;
    send();
    Q_EMIT changed();
}

void Driving::send()
{
    const auto push = m_hold.take(HoldToRun::Clock::now());
    if (push)
        m_connection.publish(topic::velocityCommand, toMessage({push->forward * m_limits.linear,
                                                                push->left * m_limits.angular}));
}

QString Driving::obstacle() const
{
    return m_end.isEmpty() ? obstacleOfRobot() : tr("%1 Let go and press again.").arg(m_end);
}

/// What keeps it from driving at the moment; empty if nothing does.
QString Driving::obstacleOfRobot() const
{
    QString control = obstacleOfControl();
    if (!control.isEmpty())
        return control;
    const QString name = m_connection.remappings().theirs(topic::velocityCommand.name);
    const Offer::State offered = m_offer.state(topic::velocityCommand.name);
    if (offered == Offer::State::Missing)
        return tr("This robot does not listen to %1. If it has another name for it, enter it in "
                  "Robot > Names….")
            .arg(name);
    if (offered == Offer::State::OtherType)
        return tr("This robot wants %1 on %2, which this program cannot send.")
            .arg(m_offer.typeOf(topic::velocityCommand.name), name);
    if (m_stopping.state() == Stopping::State::Stopped)
        return tr("The robot is stopped. Release the stop first.");
    if (m_stopping.state() == Stopping::State::Stopping)
        return tr("The robot is being stopped.");
    if (m_isDriveDisabled)
        return tr("The drive system is disabled. Enable it in the base tab.");
    const auto age = m_connection.dataAge();
    if (!age || *age > longestSilence)
        return tr("Nothing has come from the robot for a second.");
    return {};
}

QString Driving::obstacleOfControl() const
{
    if (m_connection.state() == Connection::passive)
        return tr("The device is not in control of the robot. Take control first.");
    if (m_connection.state() != Connection::connected)
        return tr("Not connected.");
    return {};
}

} // namespace host::device::operation
