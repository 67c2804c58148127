// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "ToldRobot.h"

namespace robot_scan_test {

using namespace std::chrono_literals;
using namespace told_robot;

/// What a robot's laser sees, from its scans, good and bad, and where that is.
class RobotScanTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_laser_off_centre_sees_things_in_their_true_place();
    void a_laser_that_is_mounted_upside_down_is_mirrored();
    void rays_without_an_answer_are_left_out();
    void a_bad_scan_changes_nothing_and_is_told_of_data();
    void a_bad_scan_changes_nothing_and_is_told_of();
    void rays_stay_where_they_were_measured();
    void rays_take_the_place_of_the_moment_nearest_to_theirs();
    void each_scan_has_a_place_of_its_own();
    void rays_are_placed_anew_in_another_world();
    void of_rays_closer_than_pixels_the_shortest_is_kept();
};

void RobotScanTest::a_laser_off_centre_sees_things_in_their_true_place()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 10, 0, 0),
                                    message::transform("odom", "base_link", 2, 1, pi / 2),
                                    message::transform("base_link", "laser", 0.2, 0.1, pi / 2)}));
    robot.tell(RobotState::Scan, message::scan("laser", -pi / 2, pi / 2, {1, 2, 3}));
    const auto& hits = robot.state.rays()->hits;
    QCOMPARE(hits.size(), 3);
    // The laser is at (11.9, 1.2) and looks to the left, which is back along the map's x.
    QCOMPARE(seen(robot.state.raysPlace(), hits[0]), QPointF(11.9, 2.2));
    QCOMPARE(seen(robot.state.raysPlace(), hits[1]), QPointF(9.9, 1.2));
    QCOMPARE(seen(robot.state.raysPlace(), hits[2]), QPointF(11.9, -1.8));
}

void RobotScanTest::a_laser_that_is_mounted_upside_down_is_mirrored()
{
    Robot robot;
    const QCborMap upsideDown{{"x", 1}, {"y", 0}, {"z", 0}, {"w", 0}}; // about its nose
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 0, 0, 0),
                                    message::transform("base_link", "laser",
                                                       message::vector(0, 0, 1), upsideDown)}));
    robot.tell(RobotState::Scan, message::scan("laser", pi / 2, 0, {1}));
    QCOMPARE(seen(robot.state.raysPlace(), robot.state.rays()->hits[0]), QPointF(0, -1));
}

void RobotScanTest::rays_without_an_answer_are_left_out()
{
    Robot robot;
    robot.tell(
        RobotState::Scan,
        message::scan("laser", 0, 0.1, {1, noNumber, infinite, -infinite, 0, 0.05, 5.1, -1, 2}));
    const LaserRays& rays = *robot.state.rays();
    QCOMPARE(rays.hits.size(), 2);
    QCOMPARE(rays.hits[0], QPointF(1, 0));
    QCOMPARE(QLineF({0, 0}, rays.hits[1]).length(), 2.0);
    QCOMPARE(rays.swept.size(), 4); // back to the laser between them
    QCOMPARE(rays.swept[2], QPointF(0, 0));
    robot.tell(RobotState::Scan, message::scan("laser", 0, 0.1, {1, 3, 2}));
    QCOMPARE(robot.state.rays()->reach, 3.0);
    robot.tell(RobotState::Scan, with(message::scan("laser", 0, 0.1, {0, 1}), "range_min", 0));
    QCOMPARE(robot.state.rays()->hits.size(), 1);
    robot.tell(RobotState::Scan, message::scan("laser", 0, 0.1, {}));
    QVERIFY(robot.state.rays()->hits.isEmpty());
    // A laser without limits is still one on the earth.
    robot.tell(RobotState::Scan, with(with(message::scan("laser", 0, 0.1, {-1, 1e20, infinite, 7}),
                                           "range_max", noNumber),
                                      "range_min", -infinite));
    QVERIFY(robot.state.rays()->hits.isEmpty());
    robot.tell(RobotState::Scan, with(with(message::scan("laser", 0, 0.1, {-1, 1e20, infinite, 7}),
                                           "range_max", infinite),
                                      "range_min", -infinite));
    QCOMPARE(robot.state.rays()->hits.size(), 1);
    QCOMPARE(QLineF({0, 0}, robot.state.rays()->hits[0]).length(), 7.0);
}

void RobotScanTest::a_bad_scan_changes_nothing_and_is_told_of_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::newRow("nothing") << QCborMap();
    QTest::newRow("ranges as text") << with(goodScan(), "ranges", "far");
    QTest::newRow("angle nan") << with(goodScan(), "angle_min", noNumber);
    QTest::newRow("increment infinite") << with(goodScan(), "angle_increment", infinite);
    QTest::newRow("no header") << with(goodScan(), "header", QCborValue());
}

void RobotScanTest::a_bad_scan_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    Robot robot;
    robot.tell(RobotState::Scan, goodScan());
    robot.tell(RobotState::Scan, message);
    QCOMPARE(robot.state.rays()->hits.size(), 3);
    QVERIFY(robot.state.raysPlace());
    QVERIFY2(robot.notes().contains("topic /scan was ignored: "), qPrintable(robot.notes()));
}

void RobotScanTest::rays_stay_where_they_were_measured()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 1, 0, 0, 1000)}));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}, 1000));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 2, 0, 0, 1030)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(2, 0));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1, 0));
}

void RobotScanTest::rays_take_the_place_of_the_moment_nearest_to_theirs()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 1, 0, 0, 970)}));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}, 1000));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1, 0));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 2, 0, 0, 1000)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 0));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 3, 0, 0, 1030)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 0));

    for (const int x : {4, 5}) // a robot without a clock: all its moments are equally near
        robot.tell(RobotState::Transforms,
                   message::transforms({message::transform("odom", "base_link", x, 0, 0, 1000)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 0));
}

void RobotScanTest::each_scan_has_a_place_of_its_own()
{
    Robot robot;
    for (const int second : {1, 2}) {
        const int stamp = second * 1000;
        robot.tell(
            RobotState::Transforms,
            message::transforms({message::transform("odom", "base_link", second, 0, 0, stamp)}));
        robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}, stamp));
        QCOMPARE(seen(robot.state.raysPlace()), QPointF(second, 0));
    }
    robot.tell(RobotState::Scan, message::scan("nowhere", 0, 0.1, {1}, 2000));
    QVERIFY(!robot.state.raysPlace());
}

void RobotScanTest::rays_are_placed_anew_in_another_world()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 0, 0));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1, 0));
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("map", "odom", 100, 0, 0)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(101, 0));
}

void RobotScanTest::of_rays_closer_than_pixels_the_shortest_is_kept()
{
    constexpr int count = 1000 * 1000;
    constexpr int pole = 700123;
    olm::core::LaserScanMessage scan;
    scan.frameId = "laser";
    scan.minimumAngle = -3;
    scan.angleIncrement = 6.0F / count;
    scan.minimumRange = 0.1F;
    scan.maximumRange = 10;
    scan.ranges.resize(count);
    for (int i = 0; i < count; ++i)
        scan.ranges[i] = i < count / 2 ? 3 : 20; // nothing is seen in the left half
    scan.ranges[pole] = 1;
    Robot robot;
    robot.state.readScan(scan, robot.now);
    const LaserRays& rays = *robot.state.rays();
    QVERIFY(rays.hits.size() > LaserRays::mostRays / 3);
    QVERIFY(rays.hits.size() <= LaserRays::mostRays);
    QVERIFY(rays.swept.size() <= 2 * LaserRays::mostRays);
    QCOMPARE(rays.reach, 3.0);
    const double angle = -3 + pole * double(scan.angleIncrement);
    QCOMPARE(rays.hits.last(), QPointF(std::cos(angle), std::sin(angle)));
    QCOMPARE(rays.hits.first(), QPointF(3 * std::cos(-3.0), 3 * std::sin(-3.0)));
}

TEST_WITHOUT_WINDOWS(RobotScanTest)

} // namespace robot_scan_test

#include "RobotScanTest.moc"
