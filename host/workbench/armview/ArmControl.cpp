// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/ArmControl.h"

#include "host/device/Device.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/workbench/values/OutsideText.h"
#include "rosbridge/protocol/Topics.h"

#include <algorithm>
#include <cmath>

namespace host::workbench::armview {

using device::connection::ArmJoints;
using device::connection::Connection;
using device::connection::Offer;
using robotview::RobotState;
using rosbridge::protocol::topic::armCommand;

namespace {

constexpr float sameTarget = 0.05F; // degrees or millimetres: what a field does not show

float within(const AxisLimits& limits, float target)
{
    return std::clamp(target, limits.minimum, limits.maximum);
}

} // namespace

ArmControl::ArmControl(device::Device& device, const RobotState& robot, QObject* parent)
    : QObject(parent),
      m_device(device),
      m_robot(robot)
{
    connect(&device, &device::Device::connectionStateChanged, this, [this](int state) {
        if (state == Connection::notConnected)
            forget();
    });
    connect(&device.joints(), &ArmJoints::changed, this, &ArmControl::forget);
    connect(&device.connection(), &Connection::publicationRefused, this,
            [this](const QString& topic, const QString& words) {
                if (topic == armCommand.name)
                    refuse(values::shortened(words));
            });
}

void ArmControl::refresh()
{
    for (int axis = 0; axis < axisCount; ++axis) {
        auto& entered = m_entered.at(static_cast<std::size_t>(axis));
        const auto told = m_robot.axis(axis).target;
        if (entered && told && std::abs(*entered - *told) < sameTarget)
            entered.reset();
    }
}

std::optional<float> ArmControl::target(int axis) const
{
    const RobotState::Axis& told = m_robot.axis(axis);
    const auto& entered = m_entered.at(static_cast<std::size_t>(axis));
    if (entered || !told.target)
        return entered ? entered : told.present;
    return told.target;
}

void ArmControl::enter(int axis, float target)
{
    m_entered.at(static_cast<std::size_t>(axis)) = target;
    Q_EMIT changed();
}

void ArmControl::enter(const Position& position)
{
    for (int axis = 0; axis < axisCount; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        if (!m_robot.joints().joint(axis).name.isEmpty() && position.axes.at(index).speed > 0)
            m_entered.at(index) = position.axes.at(index).target;
        else
            m_entered.at(index).reset();
    }
    Q_EMIT changed();
}

void ArmControl::jog(int axis, float step, float speed)
{
    const bool isTargetOld =
        !m_robot.overdue(RobotState::ArmState, RobotState::Clock::now()).isEmpty();
    const RobotState::Axis& told = m_robot.axis(axis);
    const auto from = told.target && !isTargetOld ? told.target : told.present;
    if (!from)
        return;
    const float target = within(Trajectory::limits(m_robot.joints(), axis), *from + step);
    const auto index = static_cast<std::size_t>(axis);
    m_entered.at(index) = target;
    Goals goals;
    goals.at(index) = {target, speed};
    send(goals);
}

void ArmControl::go(float speed)
{
    Goals goals;
    for (int axis = 0; axis < axisCount; ++axis) {
        if (const auto target = this->target(axis))
            goals.at(static_cast<std::size_t>(axis)) = {*target, speed};
    }
    send(goals);
}

void ArmControl::goTo(const Position& position)
{
    enter(position);
    Goals goals;
    std::copy(position.axes.begin(), position.axes.end(), goals.begin());
    send(goals);
}

void ArmControl::hold()
{
    Goals goals;
    for (int axis = 0; axis < axisCount; ++axis) {
        if (const auto present = m_robot.axis(axis).present)
            goals.at(static_cast<std::size_t>(axis)) = {
                within(Trajectory::limits(m_robot.joints(), axis), *present), 0};
    }
    m_entered = {};
    send(goals);
}

/// The switches as the plugin does.
void ArmControl::remedy(Hindrance::Switch which)
{
    if (which == Hindrance::Switch::None)
        return;
    if (which == Hindrance::Switch::Stop) {
        m_device.stopping().release();
        return;
    }
    if (which == Hindrance::Switch::Torque) {
        m_device.simulationDirectExec(device::connection::toggleTorque, {});
        return;
    }
    const int line = static_cast<int>(which) - static_cast<int>(Hindrance::Switch::FirstLine);
    const std::string variable = "line" + std::to_string(line) + "_enabled";
    m_device.write(::plugin::gui::VariableKind::Config, variable.c_str(), true);
    m_device.simulationDirectExec(
        static_cast<SimulationDirectExecRole>(device::connection::enableFirstLine + line), true);
}

bool ArmControl::isInControl() const
{
    return m_device.connectionState() == Connection::connected;
}

std::optional<Hindrance> ArmControl::hindrance(RobotState::TimePoint now) const
{
    const Offer::State offered = m_device.offer().state(armCommand.name);
    const Hindrance::Link link{m_device.connectionState(),
                               offered != Offer::State::Missing &&
                                   offered != Offer::State::OtherType,
                               m_device.remappings().theirs(armCommand.name)};
    return Hindrance::find(link, m_robot, now);
}

/// Of another robot, or of another arm.
void ArmControl::forget()
{
    m_entered = {};
    refuse({});
}

void ArmControl::send(const Goals& goals)
{
    QString fault;
    const auto message = Trajectory::to(goals, m_robot, &fault);
    if (!message)
        return refuse(tr("Not sent: %1.").arg(fault));
    // A client that only watches would be refused, too.
    const bool isSent = isInControl() && m_device.connection().publish(armCommand, *message);
    refuse(isSent ? QString() : tr("Not sent: the robot is not under control."));
}

void ArmControl::refuse(const QString& words)
{
    m_refusal = words;
    Q_EMIT changed();
}

} // namespace host::workbench::armview
