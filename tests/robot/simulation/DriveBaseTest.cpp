// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "robot/simulation/Simulation.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace drive_base_test {

using namespace robot::simulation;
using std::chrono::milliseconds;

class DriveBaseTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_wanders_when_nobody_commands();
    void a_command_drives_for_half_a_second();
    void a_newer_command_takes_over_and_lasts_on();
    void a_command_is_clamped_to_the_limits();
    void a_command_that_is_not_finite_is_refused_data();
    void a_command_that_is_not_finite_is_refused();
    void disabled_it_stands_still_and_forgets_its_command();
    void stopped_it_wanders_no_more_and_obeys_on();
    void odometry_starts_at_the_robot_and_follows_it();
};

namespace {

double speed(Simulation& simulation)
{
    return simulation.driveBase().odometry().twist.linear_x;
}

} // namespace

void DriveBaseTest::it_wanders_when_nobody_commands()
{
    Simulation simulation(1);
    simulation.step(milliseconds(1000));
    QVERIFY(speed(simulation) > 0.1);
}

void DriveBaseTest::a_command_drives_for_half_a_second()
{
    Simulation simulation(1);
    QVERIFY(simulation.driveBase().command({-0.2, 0.0}, nullptr));

    for (int i = 0; i < 50; ++i) {
        simulation.step(milliseconds(10));
        QVERIFY2(std::abs(speed(simulation) + 0.2) < 1e-4, qPrintable(QString::number(i)));
    }
    simulation.step(milliseconds(10));
    QVERIFY(speed(simulation) > 0.1);
}

void DriveBaseTest::a_newer_command_takes_over_and_lasts_on()
{
    Simulation simulation(1);
    QVERIFY(simulation.driveBase().command({-0.2, 0.0}, nullptr));
    simulation.step(milliseconds(400));
    QVERIFY(simulation.driveBase().command({-0.1, 0.0}, nullptr));

    simulation.step(milliseconds(500));
    QVERIFY(std::abs(speed(simulation) + 0.1) < 1e-4);
}

void DriveBaseTest::a_command_is_clamped_to_the_limits()
{
    Simulation simulation(1);
    QVERIFY(simulation.driveBase().command({1e300, -1e300}, nullptr));
    simulation.step(World::timeStep);

    const Twist twist = simulation.driveBase().odometry().twist;
    QVERIFY(std::abs(twist.linear_x - DriveBase::maximumLinear) < 0.01);
    QVERIFY(std::abs(twist.angular_z + DriveBase::maximumAngular) < 1e-4);
}

void DriveBaseTest::a_command_that_is_not_finite_is_refused_data()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::addColumn<double>("linear");
    QTest::addColumn<double>("angular");
    QTest::addColumn<QString>("named");
    QTest::newRow("linear nan") << nan << 0.0 << "linear.x = nan";
    QTest::newRow("angular nan") << 0.0 << nan << "angular.z = nan";
    QTest::newRow("linear infinite") << infinity << 0.0 << "linear.x = inf";
    QTest::newRow("angular infinite") << 0.0 << -infinity << "angular.z = -inf";
}

void DriveBaseTest::a_command_that_is_not_finite_is_refused()
{
    QFETCH(double, linear);
    QFETCH(double, angular);
    QFETCH(QString, named);
    Simulation simulation(1);
    QVERIFY(simulation.driveBase().command({-0.2, 0.0}, nullptr));

    QString error;
    QVERIFY(!simulation.driveBase().command({linear, angular}, &error));

    QVERIFY2(error.contains(named), qPrintable(error));
    simulation.step(World::timeStep);
    QVERIFY(std::abs(speed(simulation) + 0.2) < 1e-4);
}

void DriveBaseTest::disabled_it_stands_still_and_forgets_its_command()
{
    Simulation simulation(1);
    QVERIFY(simulation.driveBase().command({-0.2, 0.0}, nullptr));
    simulation.driveBase().setEnabled(false);
    const Pose2D before = simulation.world().robotPose();
    simulation.step(milliseconds(100));
    const Pose2D after = simulation.world().robotPose();
    QCOMPARE(after.x, before.x);
    QCOMPARE(after.theta, before.theta);

    QVERIFY(simulation.driveBase().command({-0.2, 0.0}, nullptr));
    simulation.step(milliseconds(100));
    QCOMPARE(simulation.world().robotPose().x, before.x);

    simulation.driveBase().setEnabled(false);
    simulation.driveBase().setEnabled(true);
    simulation.step(milliseconds(100));
    QVERIFY(speed(simulation) > 0.1);
}

void DriveBaseTest::stopped_it_wanders_no_more_and_obeys_on()
{
    Simulation simulation(1);
    QVERIFY(simulation.driveBase().command({-0.2, 0.1}, nullptr));
    simulation.step(milliseconds(100));
    simulation.driveBase().stop();
    const Pose2D before = simulation.world().robotPose();
    simulation.step(milliseconds(1000));
    QCOMPARE(simulation.world().robotPose().x, before.x);
    QCOMPARE(simulation.world().robotPose().theta, before.theta);

    QVERIFY(simulation.driveBase().command({-0.2, 0.0}, nullptr));
    simulation.step(milliseconds(100));
    QVERIFY(std::abs(speed(simulation) + 0.2) < 1e-4);
    simulation.step(milliseconds(1000));
    QCOMPARE(speed(simulation), 0.0);
}

void DriveBaseTest::odometry_starts_at_the_robot_and_follows_it()
{
    Simulation simulation(1);
    Odometry odometry = simulation.driveBase().odometry();
    QCOMPARE(odometry.header.frame_id, QStringLiteral("odom"));
    QCOMPARE(odometry.child_frame_id, QStringLiteral("base_link"));
    QVERIFY(std::hypot(odometry.pose.x, odometry.pose.y) < 1e-6);

    // Summing up the twists gives the pose, as it does with real wheels.
    Pose2D sum;
    for (int i = 0; i < 3000; ++i) {
        simulation.step(World::timeStep);
        odometry = simulation.driveBase().odometry();
        sum.theta = odometry.pose.theta;
        sum = fromFrame(sum, {odometry.twist.linear_x * 0.01, 0.0, 0.0});
    }
    QCOMPARE(odometry.header.stamp.count(), Time(std::chrono::seconds(30)).count());
    const double distance = std::hypot(sum.x - odometry.pose.x, sum.y - odometry.pose.y);
    QVERIFY2(distance < 0.1, qPrintable(QString::number(distance)));
    QVERIFY(std::hypot(odometry.pose.x, odometry.pose.y) > 0.5);
}

TEST_WITHOUT_WINDOWS(DriveBaseTest)

} // namespace drive_base_test

#include "DriveBaseTest.moc"
