// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_NODE_H
#define ROBOT_NODES_NODE_H

#include "robot/simulation/Header.h"

#include <QtGlobal>

namespace robot::nodes {

/// One part of the robot as clients know it. Its constructor, before clients come, adds the part's
/// topics, commands and services to the network; the robot builds it once and calls step() for as
/// long as it lives.
class Node
{
public:
    Node() = default;
    virtual ~Node() = default;
    Q_DISABLE_COPY(Node)

    /// The simulation has come to @p now, the stamp of what is measured at this moment. Called
    /// about a hundred times a second, less often on a busy machine or while no client is
    /// connected: publishes what has become due.
    virtual void step(simulation::Time now) = 0;
};

} // namespace robot::nodes

#endif
