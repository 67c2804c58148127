// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_WANDER_H
#define ROBOT_SIMULATION_WANDER_H

#include "robot/simulation/Geometry.h"
#include "robot/simulation/Header.h"

#include <QtGlobal>

#include <random>

namespace robot::simulation {

class World;

/// What the robot does when nobody steers it: it drives until something is in its way, then turns
/// to a direction that is free, a far view being likelier than a near one, and drives on.
class Wander
{
public:
    explicit Wander(quint32 seed);

    /// The twist for the next time step. Called once a step while the robot wanders.
    Twist twist(const World& world);

private:
    void chooseHeading(const World& world);

    std::mt19937 m_random;
    double m_ahead = 0.0; // metres that were free at the last look
    Time m_nextLook{0};
    bool m_isTurning = false;
    double m_heading = 0.0; // in the map; what the robot turns to
    double m_curve = 0.0;   // rad/s, so that it does not drive like on rails
};

} // namespace robot::simulation

#endif
