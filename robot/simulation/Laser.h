// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_LASER_H
#define ROBOT_SIMULATION_LASER_H

#include "robot/simulation/Geometry.h"
#include "robot/simulation/LaserScan.h"

#include <optional>
#include <random>

namespace robot::simulation {

class World;

/// The robot's laser range finder: a head that turns ten times a second and looks over 240 of the
/// 360 degrees. Each scan is measured at one instant; its noise is the seed's.
class Laser
{
public:
    static constexpr const char* frameId = "laser";
    static constexpr Pose2D mount{0.2, 0.0, 0.0}; ///< in base_link
    static constexpr double mountHeight = 0.25;   ///< metres above base_link
    static constexpr int rangeCount = 683;
    static constexpr double fieldOfView = 240.0 * degree;
    static constexpr Time period = std::chrono::milliseconds(100);
    static constexpr double rangeMinimum = 0.02; ///< metres
    static constexpr double rangeMaximum = 5.6;  ///< metres
    static constexpr double noise = 0.01;        ///< metres, one standard deviation

    /// @p world must outlive the laser.
    Laser(const World& world, quint32 seed);

    /// A scan of this laser without its ranges, seq and stamp.
    static LaserScan emptyScan();

    /// Off, it measures nothing, and what would have been measured is lost. On to begin with.
    void setOn(bool isOn) { m_isOn = isOn; }

    /// The scan that has become due, nothing until the next one is. Called after each
    /// World::step(). It has no intensities, as the device gives none.
    std::optional<LaserScan> takeScan();

private:
    const World& m_world;
    std::mt19937 m_random;
    std::normal_distribution<double> m_noise{0.0, noise};
    Time m_due = period;
    quint32 m_seq = 0;
    bool m_isOn = true;
};

} // namespace robot::simulation

#endif
