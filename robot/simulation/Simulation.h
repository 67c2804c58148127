// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_SIMULATION_H
#define ROBOT_SIMULATION_SIMULATION_H

#include "robot/simulation/DriveBase.h"
#include "robot/simulation/Laser.h"
#include "robot/simulation/World.h"

#include <vector>

namespace robot::simulation {

/// The robot in its world, advanced together in fixed time steps, however the time that passes is
/// cut into calls. It has no clock of its own: its owner says how much time has passed.
class Simulation
{
public:
    /// The same seed, commands and time give the same world, odometry and scans.
    explicit Simulation(quint32 seed);

    /// Advances by @p elapsed, which is not negative, in whole time steps; the rest counts next
    /// time. Returns the scans that the laser took meanwhile, oldest first.
    std::vector<LaserScan> step(Time elapsed);

    const World& world() const { return m_world; }
    DriveBase& driveBase() { return m_driveBase; }
    Laser& laser() { return m_laser; }

private:
    World m_world;
    DriveBase m_driveBase;
    Laser m_laser;
    Time m_rest{0};
};

} // namespace robot::simulation

#endif
