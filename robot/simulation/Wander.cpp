// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Wander.h"

#include "robot/simulation/World.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace robot::simulation {

namespace {

constexpr double cruiseSpeed = 0.5;   // m/s
constexpr double creepSpeed = 0.15;   // m/s, near an obstacle
constexpr double turnSpeed = 1.2;     // rad/s
constexpr double stopDistance = 0.3;  // metres that must be free in front
constexpr double startDistance = 0.6; // metres that must be free where the robot turns to
constexpr double sideMargin = 0.06;   // metres to what it passes
constexpr double view = 4.0;          // metres
constexpr double facing = 3.0 * degree;
// Looking is most of what an idle robot costs; meanwhile it drives 25 mm at most.
constexpr Time lookInterval = std::chrono::milliseconds(50);
constexpr double curveChange = 0.03; // rad/s, a step
constexpr double curveFading = 0.99; // a step

constexpr int directions = 72; // all around
constexpr int quarter = directions / 4;
constexpr double spacing = 2.0 * pi / directions;

// How far the robot can drive until it would touch what a ray, at an angle to its way, has hit.
double clearance(double distance, double angle)
{
    constexpr double reach = World::robotRadius + sideMargin;
    const double sideways = distance * std::sin(angle);
    if (std::abs(sideways) >= reach)
        return view;
    return distance * std::cos(angle) - std::sqrt(reach * reach - sideways * sideways);
}

double look(const World& world, double heading)
{
    Pose2D ray = world.robotPose();
    ray.theta = heading;
    return world.castRay(ray, view).value_or(view);
}

double clearanceAhead(const World& world)
{
    const double heading = world.robotPose().theta;
    double nearest = view;
    for (int i = -quarter; i <= quarter; ++i) {
        const double angle = i * spacing;
        nearest = std::min(nearest, clearance(look(world, heading + angle), angle));
    }
    return nearest;
}

} // namespace

Wander::Wander(quint32 seed) : m_random(seed) {}

Twist Wander::twist(const World& world)
{
    if (!m_isTurning) {
        if (world.time() >= m_nextLook) {
            m_ahead = clearanceAhead(world);
            m_nextLook = world.time() + lookInterval;
        }
        if (m_ahead >= stopDistance) {
            std::normal_distribution<double> change(0.0, curveChange);
            m_curve = m_curve * curveFading + change(m_random);
            return {std::clamp(m_ahead - stopDistance, creepSpeed, cruiseSpeed), m_curve};
        }
        chooseHeading(world);
    }
    const double rest = normalizedAngle(m_heading - world.robotPose().theta);
    m_isTurning = std::abs(rest) > facing;
    return {0.0, std::clamp(4.0 * rest, -turnSpeed, turnSpeed)};
}

void Wander::chooseHeading(const World& world)
{
    const double front = world.robotPose().theta;
    std::array<double, directions> distances{};
    for (int i = 0; i < directions; ++i)
        distances[i] = look(world, front + i * spacing);

    std::array<double, directions> free{};
    for (int i = 0; i < directions; ++i) {
        free[i] = view;
        for (int k = -quarter; k <= quarter; ++k) {
            const double distance = distances[(i + k + directions) % directions];
            free[i] = std::min(free[i], clearance(distance, k * spacing));
        }
    }

    // Surrounded, the robot turns to where there is most room and looks again from there.
    const auto widest = std::max_element(free.begin(), free.end());
    auto choice = widest - free.begin();
    if (*widest >= startDistance) {
        std::array<double, directions> weights{};
        std::transform(free.begin(), free.end(), weights.begin(),
                       [](double way) { return way >= startDistance ? way * way : 0.0; });
        choice = std::discrete_distribution<int>(weights.begin(), weights.end())(m_random);
    }
    m_heading = front + static_cast<double>(choice) * spacing;
    m_isTurning = true;
    m_nextLook = world.time(); // where it faces then
    m_curve = 0.0;
}

} // namespace robot::simulation
