// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_BEAT_H
#define ROBOT_NODES_BEAT_H

#include "robot/simulation/Header.h"

namespace robot::nodes {

/// When something that happens at a fixed rate is due. Beats that nobody asked about in time are
/// lost, the others stay on the grid.
class Beat
{
public:
    /// The first beat is at time 0.
    explicit Beat(simulation::Time period) : m_period(period) {}

    /// Whether a beat came since it was last asked; @p now does not go back.
    bool isDue(simulation::Time now)
    {
        if (now < m_next)
            return false;
        m_next += ((now - m_next) / m_period + 1) * m_period;
        return true;
    }

private:
    simulation::Time m_period;
    simulation::Time m_next{0};
};

} // namespace robot::nodes

#endif
