// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Laser.h"
#include "TestCase.h"
#include "robot/simulation/World.h"

#include <QtTest>

#include <cmath>

namespace laser_test {

using namespace robot::simulation;

class LaserTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_scan_describes_itself();
    void scans_come_ten_times_a_second();
    void off_it_measures_nothing_and_on_again_keeps_its_beat();
    void ranges_are_what_lies_around_the_mount_with_noise();
    void what_is_out_of_reach_is_zero();
    void the_same_seed_makes_the_same_noise();
};

namespace {

LaserScan nextScan(World& world, Laser& laser)
{
    for (;;) {
        world.step();
        if (const std::optional<LaserScan> scan = laser.takeScan())
            return *scan;
    }
}

} // namespace

void LaserTest::a_scan_describes_itself()
{
    World world(1);
    Laser laser(world, 2);
    const LaserScan scan = nextScan(world, laser);

    QCOMPARE(scan.header.frame_id, QStringLiteral("laser"));
    QCOMPARE(scan.ranges.size(), size_t{683});
    QVERIFY(scan.intensities.empty());
    QCOMPARE(scan.angle_min, static_cast<float>(-120.0 * degree));
    QCOMPARE(scan.angle_max, static_cast<float>(120.0 * degree));
    QCOMPARE(scan.angle_increment, static_cast<float>(240.0 / 682.0 * degree));
    QCOMPARE(scan.angle_min + 682 * scan.angle_increment, scan.angle_max);
    QCOMPARE(scan.scan_time, 0.1F);
    QCOMPARE(scan.time_increment, static_cast<float>(0.1 * (240.0 / 360.0) / 682.0));
    QCOMPARE(scan.range_min, 0.02F);
    QCOMPARE(scan.range_max, 5.6F);
}

void LaserTest::scans_come_ten_times_a_second()
{
    World world(1);
    Laser laser(world, 2);
    quint32 count = 0;
    for (int i = 0; i < 1000; ++i) {
        world.step();
        const std::optional<LaserScan> scan = laser.takeScan();
        QVERIFY(!laser.takeScan());
        if (!scan)
            continue;
        QCOMPARE(scan->header.seq, count);
        ++count;
        QCOMPARE(scan->header.stamp.count(), (count * Laser::period).count());
    }
    QCOMPARE(count, 100U);
}

void LaserTest::off_it_measures_nothing_and_on_again_keeps_its_beat()
{
    World world(1);
    Laser laser(world, 1);
    laser.setOn(false);
    for (int i = 0; i < 25; ++i) {
        world.step();
        QVERIFY(!laser.takeScan());
    }
    laser.setOn(true);
    std::optional<LaserScan> scan;
    while (!scan) {
        world.step();
        scan = laser.takeScan();
    }
    QVERIFY(scan->header.stamp == std::chrono::milliseconds(300));
    QCOMPARE(scan->header.seq, 0U);
}

void LaserTest::ranges_are_what_lies_around_the_mount_with_noise()
{
    World world(1);
    Laser laser(world, 2);
    double sum = 0.0;
    double squares = 0.0;
    int count = 0;
    while (world.time() < std::chrono::seconds(5)) {
        const LaserScan scan = nextScan(world, laser);
        for (int i = 0; i < Laser::rangeCount; ++i) {
            Pose2D ray = fromFrame(world.robotPose(), Laser::mount);
            ray.theta += double{scan.angle_min} + i * double{scan.angle_increment};
            const std::optional<double> truth = world.castRay(ray, 5.5);
            // At a corner the last digit of the angle decides on what is hit.
            if (!truth || std::abs(*truth - double{scan.ranges[i]}) > 0.1)
                continue;
            const double error = double{scan.ranges[i]} - *truth;
            sum += error;
            squares += error * error;
            ++count;
        }
    }
    QVERIFY2(count > 30000, qPrintable(QString::number(count)));
    QVERIFY2(std::abs(sum / count) < 0.0005, qPrintable(QString::number(sum / count)));
    const double deviation = std::sqrt(squares / count);
    QVERIFY2(deviation > 0.009 && deviation < 0.011, qPrintable(QString::number(deviation)));
}

void LaserTest::what_is_out_of_reach_is_zero()
{
    World world(1);
    Laser laser(world, 2);
    // The corridor is ten metres long; the person in it walks off to the side or near.
    int zeros = 0;
    for (int i = 0; i < 100; ++i) {
        for (const float range : nextScan(world, laser).ranges) {
            zeros += range == 0.0F ? 1 : 0;
            QVERIFY(range == 0.0F || (range >= 0.02F && range <= 5.6F));
        }
    }
    QVERIFY(zeros > 0);
}

void LaserTest::the_same_seed_makes_the_same_noise()
{
    World world(1);
    Laser one(world, 5);
    Laser same(world, 5);
    Laser other(world, 6);
    for (int i = 0; i < 10; ++i)
        world.step();

    const std::vector<float> ranges = one.takeScan()->ranges;
    QVERIFY(ranges == same.takeScan()->ranges);
    QVERIFY(ranges != other.takeScan()->ranges);
}

TEST_WITHOUT_WINDOWS(LaserTest)

} // namespace laser_test

#include "LaserTest.moc"
