// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_DRIVEBASE_H
#define ROBOT_SIMULATION_DRIVEBASE_H

#include "robot/simulation/Header.h"
#include "robot/simulation/Wander.h"

#include <QCoreApplication>

#include <optional>

namespace robot::simulation {

/// nav_msgs/Odometry on the floor.
struct Odometry
{
    Header header; ///< seq is left to who publishes
    QString child_frame_id;
    Pose2D pose; ///< of child_frame_id in header.frame_id
    Twist twist; ///< in child_frame_id
};

/// The robot's wheels and what decides on them: a velocity command for as long as it is fresh, the
/// robot's own wandering otherwise, until it is stopped, and nothing at all while disabled. Enabled
/// to begin with.
class DriveBase
{
    Q_DECLARE_TR_FUNCTIONS(robot::simulation::DriveBase)

public:
    static constexpr const char* odometryFrameId = "odom";
    static constexpr const char* baseFrameId = "base_link";
    static constexpr double maximumLinear = 0.6;  ///< m/s, forwards and backwards
    static constexpr double maximumAngular = 1.5; ///< rad/s
    static constexpr Time commandLifetime = std::chrono::milliseconds(500);

    /// @p world must outlive the drive base.
    DriveBase(World& world, quint32 seed);

    /// A client's geometry_msgs/Twist, clamped to the limits; drives the robot from the next step
    /// on until commandLifetime is over or a newer command comes. One that is not finite changes
    /// nothing and gives false and, in @p error (may be null), the reason.
    bool command(const Twist& twist, QString* error);

    /// Takes the command back before its time is over.
    void endCommand() { m_command.reset(); }

    /// Takes the command back and ends the wandering for good: from now on the robot moves only
    /// when it is commanded.
    void stop();

    /// Disabled, the robot stands still and forgets the command it had.
    void setEnabled(bool isEnabled);
    bool isEnabled() const { return m_isEnabled; }

    /// Decides on the next step. Called before each World::step().
    void control();

    /// The frame "odom" lies where the robot started; wheels slip only against an obstacle.
    Odometry odometry() const;

private:
    struct Command
    {
        Twist twist;
        Time time{0};
    };

    World& m_world;
    Wander m_wander;
    bool m_isEnabled = true;
    bool m_wanders = true;
    std::optional<Command> m_command;
};

} // namespace robot::simulation

#endif
