// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_ARM_H
#define ROBOT_SIMULATION_ARM_H

#include "robot/simulation/Header.h"

#include <QCoreApplication>

#include <array>
#include <vector>

namespace robot::simulation {

/// The robot's manipulator: nine axes, each of which goes to its target at a speed of its own while
/// the torque is on and its supply line is. What loses its power stops and forgets its target, so
/// that nothing jumps when the power returns. To begin with the lines are on and the torque is off.
class Arm
{
    Q_DECLARE_TR_FUNCTIONS(robot::simulation::Arm)

public:
    static constexpr int axisCount = 9;
    static constexpr int lineCount = 3;
    static constexpr int axesPerLine =
        axisCount / lineCount;                       ///< the first line feeds the first three
    static constexpr double maximumPosition = 300.0; ///< degrees; the least is 0
    static constexpr double maximumSpeed = 143.0;    ///< degrees per second
    static constexpr double defaultSpeed = 30.0;     ///< degrees per second

    /// Degrees and degrees per second.
    struct Axis
    {
        double position = 0.0;
        double velocity = 0.0; ///< over the last step; negative towards 0
        double target = 0.0;
        double speed = defaultSpeed;

        void stop();
    };

    /// What is asked of one axis.
    struct Movement
    {
        QString axis; ///< as name() gives it
        double target = 0.0;
        double speed = defaultSpeed; ///< 0: the axis stops
    };

    /// What a command came to.
    struct Answer
    {
        bool success = false;
        QString message; ///< a sentence for people: what was done, or why nothing was
    };

    /// For clients: "axis0" to "axis8". People count axes and lines from 1.
    static QString name(int axis);

    /// Gives the axes of @p movements new targets; the others go on as they are. Those without
    /// power stay where they are. Nothing at all is done if that is true of all of them, or if any
    /// movement is unfit: its axis unknown or named before, its numbers beyond the limits.
    Answer move(const std::vector<Movement>& movements);

    Answer setTorqueEnabled(bool isEnabled);
    bool isTorqueEnabled() const { return m_isTorqueEnabled; }

    /// @p line is below lineCount.
    Answer setLineEnabled(int line, bool isEnabled);
    bool isLineEnabled(int line) const { return m_isLineEnabled.at(line); }

    /// All axes stay where they are, and have no other target any more. False if none had.
    bool stop();

    /// Moves the axes for @p elapsed, which is not negative.
    void step(Time elapsed);

    const std::array<Axis, axisCount>& axes() const { return m_axes; }

private:
    static QString refusalOf(const Movement& movement);
    bool isPowered(int axis) const;
    QString hindrance(int axis) const;
    static QString lineOff(int line);
    void stopUnpowered();

    std::array<Axis, axisCount> m_axes;
    std::array<bool, lineCount> m_isLineEnabled{true, true, true};
    bool m_isTorqueEnabled = false;
};

} // namespace robot::simulation

#endif
