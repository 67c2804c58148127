// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/Robot.h"

#include "robot/nodes/ArmNode.h"
#include "robot/nodes/CameraNode.h"
#include "robot/nodes/ClockNode.h"
#include "robot/nodes/DriveNode.h"
#include "robot/nodes/LaserNode.h"
#include "robot/nodes/MapNode.h"
#include "robot/nodes/TransformNode.h"
#include "robot/simulation/Simulation.h"

namespace robot {

using simulation::Simulation;

namespace {

// The simulation covers it in its own time steps.
constexpr std::chrono::milliseconds strideUnseen(500);

} // namespace

Robot::Robot(quint32 seed, const rosbridge::server::Limits& limits, QObject* parent)
    : QObject(parent),
      m_seed(seed),
      m_simulation(std::make_unique<Simulation>(seed)),
      m_network(m_clock, limits)
{
    auto laser = std::make_unique<nodes::LaserNode>(m_network, m_simulation->laser());
    m_laser = laser.get();
    m_nodes.push_back(std::make_unique<nodes::ClockNode>(m_network, m_clock));
    m_nodes.push_back(std::make_unique<nodes::MapNode>(m_network));
    m_nodes.push_back(std::make_unique<nodes::DriveNode>(m_network, m_simulation->driveBase()));
    m_nodes.push_back(std::make_unique<nodes::TransformNode>(m_network, m_simulation->driveBase()));
    m_nodes.push_back(std::move(laser));
    m_nodes.push_back(std::make_unique<nodes::CameraNode>(m_network, m_simulation->world()));
    m_nodes.push_back(std::make_unique<nodes::ArmNode>(m_network));

    connect(&m_timer, &QTimer::timeout, this, &Robot::step);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.start(strideUnseen);
    connect(&m_network, &network::Network::joined, this, [this] {
        if (m_timer.intervalAsDuration() == strideUnseen)
            step(); // the first client finds the world as it is now
    });
}

Robot::~Robot() = default;

bool Robot::setLaserLog(const QString& file, double rate, QStringList* problems, QString* error)
{
    return m_laser->setLog(file, rate, problems, error);
}

void Robot::step()
{
    m_laser->setMeasured(m_simulation->step(m_clock.advance()));
    for (const std::unique_ptr<nodes::Node>& node : m_nodes)
        node->step(m_simulation->world().time());
    setPace();
}

// Clients may come and go faster than the timer, which must not begin anew with each of them.
void Robot::setPace()
{
    const auto timeStep =
        std::chrono::duration_cast<std::chrono::milliseconds>(simulation::World::timeStep);
    const std::chrono::milliseconds pace = m_network.hasClients() ? timeStep : strideUnseen;
    if (pace != m_timer.intervalAsDuration())
        m_timer.start(pace);
}

} // namespace robot
