// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RobotMessages.h"
#include "ShownWorld.h"
#include "Tell.h"
#include "TestCase.h"

#include "host/workbench/robotview/WorldView.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

namespace world_view_moving_test {

using namespace shown_world;
using namespace host::workbench::robotview;
using namespace std::chrono_literals;
using message::with;

/// How the picture of the world is moved and zoomed.
class WorldViewMovingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_wheel_zooms_about_the_pointer();
    void keys_zoom_and_move();
    void dragging_moves();
    void following_keeps_the_robot_in_the_middle_until_the_view_is_moved();
    void zooming_while_following_keeps_the_robot_in_the_middle();
    void zooming_has_limits();
    void it_shows_all_again_when_told();
    void the_place_under_the_mouse_is_told();
    void dragging_with_shift_measures_and_moves_nothing();
};

void WorldViewMovingTest::the_wheel_zooms_about_the_pointer()
{
    World world;
    world.view.grab();
    const QPoint pixel = world.pixelOf(3, 2);
    world.turnWheel(pixel, 120);
    QCOMPARE(world.scale(), 125.0);
    QCOMPARE(world.pixelOf(3, 2), pixel);
    world.turnWheel(pixel, -240);
    QCOMPARE(world.scale(), 80.0);
    QCOMPARE(world.pixelOf(3, 2), pixel);
}

void WorldViewMovingTest::keys_zoom_and_move()
{
    World world;
    world.view.grab();
    const QPoint before = world.pixelOf(2, 1);
    QTest::keyClick(&world.view, Qt::Key_Right);
    QVERIFY(world.pixelOf(2, 1).x() < before.x());
    QTest::keyClick(&world.view, Qt::Key_Left);
    QCOMPARE(world.pixelOf(2, 1), before);
    QTest::keyClick(&world.view, Qt::Key_Up);
    QVERIFY(world.pixelOf(2, 1).y() > before.y());
    QTest::keyClick(&world.view, Qt::Key_Down);
    QCOMPARE(world.pixelOf(2, 1), before);
    QTest::keyClick(&world.view, Qt::Key_Plus);
    QCOMPARE(world.scale(), 125.0);
    QTest::keyClick(&world.view, Qt::Key_Minus);
    QCOMPARE(world.scale(), 100.0);
    QTest::keyClick(&world.view, Qt::Key_Left);
    QTest::keyClick(&world.view, Qt::Key_Home);
    world.view.grab();
    QCOMPARE(world.pixelOf(2, 1), before);
}

void WorldViewMovingTest::dragging_moves()
{
    World world;
    world.view.grab();
    const QPoint before = world.pixelOf(2, 1);
    QTest::mousePress(&world.view, Qt::LeftButton, {}, {100, 100});
    world.moveMouse({130, 90}, Qt::LeftButton);
    world.moveMouse({140, 150}, Qt::LeftButton);
    QTest::mouseRelease(&world.view, Qt::LeftButton, {}, {140, 150});
    QCOMPARE(world.pixelOf(2, 1), before + QPoint(40, 50));
    world.moveMouse({10, 10}, Qt::NoButton);
    QCOMPARE(world.pixelOf(2, 1), before + QPoint(40, 50));
}

void WorldViewMovingTest::following_keeps_the_robot_in_the_middle_until_the_view_is_moved()
{
    World world;
    const QSignalSpy changes(&world.view, &WorldView::followingChanged);
    world.view.setFollowing(true);
    for (const double x : {1.0, 2.0, 30.0}) {
        world.tell(RobotState::Odometry, message::odometry("map", "base_link", x, 1, 0));
        world.view.grab();
        QCOMPARE(world.pixelOf(x, 1), QPoint(212, 212));
    }
    QTest::keyClick(&world.view, Qt::Key_Left);
    QVERIFY(!world.view.isFollowing());
    QCOMPARE(changes, QList<QVariantList>({{true}, {false}}));
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, 0));
    world.view.grab();
    QVERIFY(world.pixelOf(1, 1) != QPoint(212, 212));
}

void WorldViewMovingTest::zooming_while_following_keeps_the_robot_in_the_middle()
{
    World world;
    world.view.setFollowing(true);
    world.turnWheel({10, 10}, 120);
    world.view.grab();
    QVERIFY(world.view.isFollowing());
    QCOMPARE(world.scale(), 125.0);
    QCOMPARE(world.pixelOf(1, 1), QPoint(212, 212));
}

void WorldViewMovingTest::zooming_has_limits()
{
    World world;
    for (const int angle : {1200, -1200}) {
        double last = 0;
        for (int i = 0; i < 100; ++i) {
            last = world.scale();
            world.turnWheel({212, 212}, angle);
            world.view.grab();
        }
        QCOMPARE(world.scale(), last);
    }
}

void WorldViewMovingTest::it_shows_all_again_when_told()
{
    World world;
    world.view.setFollowing(true);
    world.turnWheel({10, 10}, 1200);
    world.view.showAll();
    QVERIFY(!world.view.isFollowing());
    world.view.grab();
    QCOMPARE(world.scale(), 100.0);
    world.view.resize(824, 824);
    world.view.grab();
    QCOMPARE(world.scale(), 200.0);
}

void WorldViewMovingTest::the_place_under_the_mouse_is_told()
{
    World world;
    world.view.grab();
    QVERIFY(world.view.ruler().words().isEmpty());
    world.moveMouse(world.pixelOf(3, 1.5), Qt::NoButton);
    QCOMPARE(world.view.ruler().words(), QString("x 3.00 m, y 1.50 m"));
    const QImage with = world.view.grab().toImage();
    QEvent leaving(QEvent::Leave);
    QCoreApplication::sendEvent(&world.view, &leaving);
    QVERIFY(world.view.ruler().words().isEmpty());
    QVERIFY(world.view.grab().toImage() != with);
}

void WorldViewMovingTest::dragging_with_shift_measures_and_moves_nothing()
{
    World world;
    world.view.grab();
    const QPoint from = world.pixelOf(1, 1);
    QTest::mousePress(&world.view, Qt::LeftButton, Qt::ShiftModifier, from);
    world.moveMouse(world.pixelOf(1, 2), Qt::LeftButton);
    QTest::mouseRelease(&world.view, Qt::LeftButton, Qt::ShiftModifier, world.pixelOf(1, 2));
    QCOMPARE(world.view.ruler().words(), QString("x 1.00 m, y 2.00 m\n1.00 m at 90\u00b0"));
    QCOMPARE(world.pixelOf(1, 1), from);
    world.moveMouse(world.pixelOf(2, 2), Qt::NoButton);
    QVERIFY(world.view.ruler().words().endsWith("1.00 m at 90\u00b0")); // to be read at leisure
    QTest::keyClick(&world.view, Qt::Key_Escape);
    QCOMPARE(world.view.ruler().words(), QString("x 2.00 m, y 2.00 m"));
}

TEST_WITH_WINDOWS(WorldViewMovingTest)

} // namespace world_view_moving_test

#include "WorldViewMovingTest.moc"
