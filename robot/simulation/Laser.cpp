// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Laser.h"

#include "robot/simulation/World.h"

namespace robot::simulation {

namespace {

constexpr double increment = Laser::fieldOfView / (Laser::rangeCount - 1);

} // namespace

Laser::Laser(const World& world, quint32 seed) : m_world(world), m_random(seed) {}

LaserScan Laser::emptyScan()
{
    constexpr double scanSeconds = std::chrono::duration<double>(period).count();
    LaserScan scan;
    scan.header.frame_id = frameId;
    scan.angle_min = static_cast<float>(-fieldOfView / 2.0);
    scan.angle_max = static_cast<float>(fieldOfView / 2.0);
    scan.angle_increment = static_cast<float>(increment);
    scan.time_increment = static_cast<float>(scanSeconds * increment / (2.0 * pi));
    scan.scan_time = static_cast<float>(scanSeconds);
    scan.range_min = static_cast<float>(rangeMinimum);
    scan.range_max = static_cast<float>(rangeMaximum);
    return scan;
}

std::optional<LaserScan> Laser::takeScan()
{
    if (m_world.time() < m_due)
        return std::nullopt;
    m_due += period;
    if (!m_isOn)
        return std::nullopt;

    LaserScan scan = emptyScan();
    scan.header.seq = m_seq++;
    scan.header.stamp = m_world.time();
    scan.ranges.reserve(rangeCount);

    const Pose2D head = fromFrame(m_world.robotPose(), mount);
    for (int i = 0; i < rangeCount; ++i) {
        Pose2D ray = head;
        ray.theta += -fieldOfView / 2.0 + i * increment;
        const std::optional<double> distance = m_world.castRay(ray, rangeMaximum);
        const double range = distance ? *distance + m_noise(m_random) : 0.0;
        const bool isReturn = range >= rangeMinimum && range <= rangeMaximum;
        scan.ranges.push_back(isReturn ? static_cast<float>(range) : 0.0F);
    }
    return scan;
}

} // namespace robot::simulation
