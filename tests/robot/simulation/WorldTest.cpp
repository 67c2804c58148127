// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/World.h"
#include "TestCase.h"
#include "Walls.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace world_test {

using namespace robot::simulation;

class WorldTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_same_seed_makes_the_same_world();
    void another_seed_makes_another_world();
    void time_is_the_steps_so_far();
    void a_ray_ends_at_the_first_wall();
    void a_ray_that_meets_nothing_gives_nothing();
    void a_ray_sees_people_and_not_the_robot();
    void a_ray_goes_on_above_what_is_lower_than_the_room();
    void rays_and_the_map_agree();
    void the_robot_drives_where_its_twist_says();
    void a_wall_stops_the_robot();
    void people_walk_about_and_stay_inside();
};

namespace {

void stepSeconds(World& world, int seconds)
{
    for (int i = 0; i < seconds * 100; ++i)
        world.step();
}

std::vector<double> numbersOf(const World& world)
{
    std::vector<double> numbers;
    std::vector<Pose2D> poses = world.people();
    poses.push_back(world.robotPose());
    for (const Pose2D& pose : poses)
        numbers.insert(numbers.end(), {pose.x, pose.y, pose.theta});
    return numbers;
}

} // namespace

void WorldTest::the_same_seed_makes_the_same_world()
{
    World one(7);
    World other(7);
    for (World* world : {&one, &other}) {
        world->setRobotTwist({0.4, 0.7});
        stepSeconds(*world, 30);
    }

    const std::vector<double> a = numbersOf(one);
    const std::vector<double> b = numbersOf(other);
    QCOMPARE(a.size(), b.size());
    QCOMPARE(std::memcmp(a.data(), b.data(), a.size() * sizeof(double)), 0);
}

void WorldTest::another_seed_makes_another_world()
{
    World one(7);
    World other(8);
    stepSeconds(one, 1);
    stepSeconds(other, 1);

    QVERIFY(numbersOf(one) != numbersOf(other));
}

void WorldTest::time_is_the_steps_so_far()
{
    World world(1);
    QCOMPARE(world.time().count(), Time(0).count());
    stepSeconds(world, 3);
    QCOMPARE(world.time().count(), Time(std::chrono::seconds(3)).count());
}

void WorldTest::a_ray_ends_at_the_first_wall()
{
    const World world(1);

    const std::optional<double> up = world.castRay({1.0, 4.2, pi / 2.0}, 5.0);
    QVERIFY(up);
    QVERIFY2(std::abs(*up - 0.8) < 1e-5, qPrintable(QString::number(*up)));
    const std::optional<double> back = world.castRay({1.0, 4.2, pi}, 5.0);
    QVERIFY(back);
    QVERIFY2(std::abs(*back - 0.8) < 1e-5, qPrintable(QString::number(*back)));
}

void WorldTest::a_ray_that_meets_nothing_gives_nothing()
{
    const World world(1);
    QVERIFY(!world.castRay({1.0, 4.2, pi / 2.0}, 0.79));
}

void WorldTest::a_ray_sees_people_and_not_the_robot()
{
    const World world(1);
    const Pose2D person = world.people().front();
    const Pose2D robot = world.robotPose();
    QCOMPARE(person.y, robot.y);

    const std::optional<double> hit = world.castRay({0.5, robot.y, 0.0}, 10.0);
    QVERIFY(hit);
    const double expected = person.x - World::personRadius - 0.5;
    QVERIFY2(std::abs(*hit - expected) < 1e-4, qPrintable(QString::number(*hit)));
}

void WorldTest::a_ray_goes_on_above_what_is_lower_than_the_room()
{
    const World world(1);
    const std::vector<World::Hit> table = world.castThrough({5.9, 5.5, pi / 2.0}, 15.0);
    QCOMPARE(table.size(), size_t{2});
    QVERIFY(std::abs(table[0].distance - 2.3) < 1e-4);
    QCOMPARE(table[0].upTo, FloorPlan::ceiling);
    QVERIFY(std::abs(table[1].distance - 0.7) < 1e-4);
    QCOMPARE(table[1].upTo, 0.75);
    QVERIFY(!table[1].person);
    QVERIFY(std::abs(table[1].normal_x) < 1e-6);

    const std::vector<World::Hit> corridor = world.castThrough({0.5, 4.2, 0.0}, 15.0);
    QCOMPARE(corridor.size(), size_t{2});
    QVERIFY(std::abs(corridor[0].distance - 11.3) < 1e-4);
    QVERIFY(std::abs(corridor[0].normal_x) > 1.0 - 1e-6);
    QCOMPARE(corridor[1].person.value_or(-1), 0);
    QVERIFY(world.castThrough({0.5, 4.2, 0.0}, 0.5).empty());
}

void WorldTest::rays_and_the_map_agree()
{
    const World world(1);
    const OccupancyGrid grid = FloorPlan::occupancyGrid(0.05);
    const auto isOccupied = [&grid](const Pose2D& pose) {
        return grid.data.at(static_cast<size_t>(pose.y / 0.05) * grid.width +
                            static_cast<size_t>(pose.x / 0.05)) == 100;
    };
    int walls = 0;
    for (int i = 0; i < 720; ++i) {
        const Pose2D ray{1.0, 4.2, i * 0.5 * degree};
        const std::optional<double> hit = world.castRay(ray, 15.0);
        QVERIFY(hit);
        const Pose2D before = fromFrame(ray, {*hit - 0.02, 0.0, 0.0});
        const Pose2D behind = fromFrame(ray, {*hit + 0.02, 0.0, 0.0});
        QVERIFY(!isOccupied(before) || distanceToWalls(before) < 0.02);
        if (isOccupied(behind))
            ++walls;
    }
    // The rest are people, and rays that graze a corner.
    QVERIFY2(walls > 680, qPrintable(QString::number(walls)));
}

void WorldTest::the_robot_drives_where_its_twist_says()
{
    World world(1);
    world.setRobotTwist({0.5, 0.0});
    stepSeconds(world, 2);
    QVERIFY(std::abs(world.robotPose().x - FloorPlan::robotStart.x - 1.0) < 0.01);
    QVERIFY(std::abs(world.robotPose().y - FloorPlan::robotStart.y) < 0.01);

    world.setRobotTwist({0.0, pi / 4.0});
    stepSeconds(world, 2);
    QVERIFY(std::abs(world.robotPose().theta - pi / 2.0) < 0.01);
    QVERIFY(std::abs(world.robotTwist().angular_z - pi / 4.0) < 0.001);
}

void WorldTest::a_wall_stops_the_robot()
{
    World world(1);
    world.setRobotTwist({-0.5, 0.0});
    stepSeconds(world, 5);

    QVERIFY(std::abs(world.robotPose().x - 0.2 - World::robotRadius) < 0.02);
    QVERIFY(std::abs(world.robotTwist().linear_x) < 0.01);
}

void WorldTest::people_walk_about_and_stay_inside()
{
    World world(3);
    const std::vector<Pose2D> starts = world.people();
    std::vector<double> farthest(starts.size(), 0.0);
    for (int i = 0; i < 300; ++i) {
        stepSeconds(world, 1);
        const std::vector<Pose2D> people = world.people();
        for (size_t k = 0; k < people.size(); ++k) {
            QVERIFY(distanceToWalls(people[k]) > World::personRadius - 0.03);
            farthest[k] = std::max(
                farthest[k], std::hypot(people[k].x - starts[k].x, people[k].y - starts[k].y));
        }
    }
    for (const double distance : farthest)
        QVERIFY2(distance > 1.0, qPrintable(QString::number(distance)));
}

TEST_WITHOUT_WINDOWS(WorldTest)

} // namespace world_test

#include "WorldTest.moc"
