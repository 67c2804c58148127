// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Simulation.h"

namespace robot::simulation {

// Each part draws from a sequence of its own, so that one does not disturb the other.
Simulation::Simulation(quint32 seed)
    : m_world(seed),
      m_driveBase(m_world, seed + 1),
      m_laser(m_world, seed + 2)
{
}

std::vector<LaserScan> Simulation::step(Time elapsed)
{
    std::vector<LaserScan> scans;
    for (m_rest += elapsed; m_rest >= World::timeStep; m_rest -= World::timeStep) {
        m_driveBase.control();
        m_world.step();
        if (std::optional<LaserScan> scan = m_laser.takeScan())
            scans.push_back(*std::move(scan));
    }
    return scans;
}

} // namespace robot::simulation
