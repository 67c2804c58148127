#include "robot/Robot.h"

#include "robot/nodes/ClockNode.h"
#include "robot/simulation/Simulation.h"

namespace robot {

Robot::Robot(quint32 seed, const Limits& limits, QObject* parent)
    : QObject(parent),
      m_seed(seed),
      m_network(m_clock, limits),
      m_simulation(std::make_unique<simulation::Simulation>(seed))
{
    m_nodes.push_back(std::make_unique<ClockNode>(m_network));

    connect(&m_timer, &QTimer::timeout, this, &Robot::step);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.start(
        std::chrono::duration_cast<std::chrono::milliseconds>(simulation::World::timeStep));
}

Robot::~Robot() = default;

void Robot::step()
{
    m_simulation->step(m_clock.advance());
    for (const std::unique_ptr<Node>& node : m_nodes)
        node->step(m_simulation->world().time());
}

} // namespace robot
