// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_ARMCONTROL_H
#define HOST_WORKBENCH_ARMVIEW_ARMCONTROL_H

#include "host/workbench/armview/Hindrance.h"
#include "host/workbench/armview/StoredPositions.h"
#include "host/workbench/armview/Trajectory.h"

#include <QObject>
#include <QString>

#include <array>
#include <optional>

namespace host::device {
class Device;
}

namespace host::workbench::armview {

/// Where a person wants a device's arm, and the commands to it. Each is sent when it is called, and
/// nothing is sent at any other time.
class ArmControl : public QObject
{
    Q_OBJECT

public:
    using Position = StoredPositions::Position;

    /// @p robot is the state of the device's robot. Both outlive the control.
    ArmControl(device::Device& device, const robotview::RobotState& robot, QObject* parent);

    /// The state of the robot changed: what was entered and is its target by now is entered no
    /// more.
    void refresh();

    /// What was entered for the axis, or else where it is going or is; none where nothing is known.
    std::optional<float> target(int axis) const;

    // Enters targets, and sends nothing.
    void enter(int axis, float target);
    void enter(const Position& position);

    // Commands; refusal() says why one was not sent or not obeyed.

    /// Sends the axis on by @p step, degrees or millimetres, at @p speed a second, from where it is
    /// going; nowhere beyond its limits.
    void jog(int axis, float step, float speed);
    /// Sends all axes to their targets at @p speed a second.
    void go(float speed);
    /// Sends all axes to the position at the speeds that are stored in it.
    void goTo(const Position& position);
    /// Stops all axes where they are.
    void hold();
    /// Switches the torque or a supply line on, or releases the stop.
    void remedy(Hindrance::Switch which);

    /// Whether this device commands its robot, so that the arm may be held at least.
    bool isInControl() const;

    /// Why the arm does not move, if that is known before.
    std::optional<Hindrance> hindrance(robotview::RobotState::TimePoint now) const;

    /// Why the last command was not sent, or what the robot said to it; empty where nothing is
    /// wrong.
    QString refusal() const { return m_refusal; }

Q_SIGNALS:
    /// A target was entered, or something was refused.
    void changed();

private:
    void forget();
    void send(const Goals& goals);
    void refuse(const QString& words);

    device::Device& m_device;
    const robotview::RobotState& m_robot;
    std::array<std::optional<float>, axisCount> m_entered;
    QString m_refusal;
};

} // namespace host::workbench::armview

#endif
