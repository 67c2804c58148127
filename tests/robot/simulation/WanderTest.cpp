// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Walls.h"
#include "robot/simulation/Simulation.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

namespace wander_test {

using namespace robot::simulation;

class WanderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_robot_keeps_travelling_and_touches_no_wall_data();
    void the_robot_keeps_travelling_and_touches_no_wall();
    void the_robot_frees_itself_after_it_was_driven_into_a_wall();
};

void WanderTest::the_robot_keeps_travelling_and_touches_no_wall_data()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 3U})
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void WanderTest::the_robot_keeps_travelling_and_touches_no_wall()
{
    QFETCH(quint32, seed);
    World world(seed);
    DriveBase driveBase(world, seed + 1);
    Pose2D last = world.robotPose();
    double left = last.x;
    double right = last.x;
    double total = 0.0;
    for (int halfMinute = 0; halfMinute < 20; ++halfMinute) {
        double travelled = 0.0;
        for (int i = 0; i < 3000; ++i) {
            driveBase.control();
            world.step();
            const Pose2D pose = world.robotPose();
            QVERIFY2(distanceToWalls(pose) > World::robotRadius,
                     qPrintable(QStringLiteral("%1, %2").arg(pose.x).arg(pose.y)));
            travelled += std::hypot(pose.x - last.x, pose.y - last.y);
            left = std::min(left, pose.x);
            right = std::max(right, pose.x);
            last = pose;
        }
        QVERIFY2(travelled > 2.0,
                 qPrintable(QStringLiteral("half minute %1: %2 m").arg(halfMinute).arg(travelled)));
        total += travelled;
    }
    QVERIFY2(total > 120.0, qPrintable(QString::number(total)));
    QVERIFY2(right - left > 3.5, qPrintable(QString::number(right - left)));
}

void WanderTest::the_robot_frees_itself_after_it_was_driven_into_a_wall()
{
    Simulation simulation(1);
    for (int i = 0; i < 50; ++i) {
        QVERIFY(simulation.driveBase().command({-0.6, 0.0}, nullptr));
        simulation.step(std::chrono::milliseconds(100));
    }
    QVERIFY(distanceToWalls(simulation.world().robotPose()) < World::robotRadius + 0.02);

    simulation.step(std::chrono::seconds(20));
    QVERIFY(distanceToWalls(simulation.world().robotPose()) > World::robotRadius + 0.02);
}

TEST_WITHOUT_WINDOWS(WanderTest)

} // namespace wander_test

#include "WanderTest.moc"
