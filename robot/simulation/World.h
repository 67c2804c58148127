// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_WORLD_H
#define ROBOT_SIMULATION_WORLD_H

#include "robot/simulation/FloorPlan.h"
#include "robot/simulation/Geometry.h"
#include "robot/simulation/Header.h"

#include <memory>
#include <optional>
#include <random>
#include <vector>

class b2Body;
class b2World;

namespace robot::simulation {

/// The floor with the robot and the people who walk about on it. Bodies, collisions and ray casts
/// are Box2D's; this class builds its world and gives the bodies their will. The same seed and the
/// same calls make the same world, bit for bit on the same machine.
class World
{
public:
    static constexpr Time timeStep = std::chrono::milliseconds(10);
    static constexpr double robotRadius = 0.25;  ///< metres
    static constexpr double personRadius = 0.22; ///< metres

    /// Where a ray meets a box of the floor plan, or else a person.
    struct Hit
    {
        double distance = 0.0;     ///< metres
        double normal_x = 0.0;     ///< of the surface: 1 or -1 where it looks along the x axis
        std::optional<int> person; ///< the index in people()
        double upTo = 0.0;         ///< metres above the floor, of a box
    };

    explicit World(quint32 seed);
    ~World();
    Q_DISABLE_COPY(World)

    /// Advances by one time step.
    void step();

    /// Since the beginning: the steps so far times the time step.
    Time time() const { return m_time; }

    /// What the robot's wheels try to do from now on; a wall or a person may stop them.
    void setRobotTwist(const Twist& twist) { m_twist = twist; }

    /// In the frame "map".
    Pose2D robotPose() const;
    /// How the robot really moves.
    Twist robotTwist() const;

    /// The centres of the people, theta the direction that they walk in.
    std::vector<Pose2D> people() const;

    /// The distance from @p from along its theta to the nearest wall or person, in metres; nothing
    /// within @p length (positive) gives nothing. The robot itself is not seen.
    std::optional<double> castRay(const Pose2D& from, double length) const;

    /// All that is in the way of such a ray above the floor, farthest first: what stands behind
    /// something that is as high as the room is left out.
    std::vector<Hit> castThrough(const Pose2D& from, double length) const;

private:
    struct Person
    {
        b2Body* body = nullptr; // the world's
        float speed = 0.0F;     // m/s
    };

    void addWalls();
    b2Body* addDisc(const Pose2D& pose, double radius, float density);
    void walk(const Person& person);

    std::mt19937 m_random;
    std::unique_ptr<b2World> m_physics;
    b2Body* m_robot = nullptr; // the world's
    std::vector<Person> m_people;
    Twist m_twist;
    Time m_time{0};
};

} // namespace robot::simulation

#endif
