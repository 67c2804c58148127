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

namespace world_view_test {

using namespace shown_world;
using namespace host::workbench::robotview;
using namespace std::chrono_literals;
using message::with;

/// The picture of the world.
class WorldViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_shows_all_at_first();
    void map_robot_and_rays_are_where_they_are_told();
    void the_footprint_is_to_scale_and_turns_with_the_robot();
    void the_robot_is_in_sight_beside_its_map();
    void the_path_is_painted_whichever_way_it_was_driven();
    void the_scale_has_a_bar_of_a_round_length();
    void a_turned_map_is_shown_turned();
    void a_map_is_shown_by_halves_turned_and_mirrored_data();
    void a_map_is_shown_by_halves_turned_and_mirrored();
    void a_map_turned_by_next_to_nothing_stays_as_it_is();
    void walls_are_seen_on_a_map_with_more_cells_than_pixels();
    void what_is_old_is_grey();
    void a_robot_without_a_map_is_shown_with_what_is_about_it();
    void colours_follow_the_palette();
    void far_away_places_do_no_harm();
    void a_map_that_just_leaves_the_sight_does_no_harm();
    void it_is_painted_thirty_times_a_second_at_most();
};

void WorldViewTest::it_shows_all_at_first()
{
    World world;
    world.view.grab();
    QCOMPARE(world.scale(), 100.0);
    QCOMPARE(world.pixelOf(0, 0), QPoint(12, 312));
    QCOMPARE(world.pixelOf(4, 2), QPoint(412, 112));
}

void WorldViewTest::map_robot_and_rays_are_where_they_are_told()
{
    World world;
    world.tell(RobotState::Scan, message::scan("base_link", 0, pi / 2, {1.5, 0.8}));
    QCOMPARE(world.colourAt(0.3, 0.3), QColor(Qt::white));
    QCOMPARE(world.colourAt(3.5, 0.5), QColor(Qt::black));
    QCOMPARE(world.colourAt(1.05, 1), QColor(Qt::blue));
    QCOMPARE(world.colourAt(1.0, 2.2), QColor(191, 191, 191)); // outside the map
    const QColor ahead = world.colourAt(2.5, 1);
    const QColor left = world.colourAt(1, 1.8);
    QCOMPARE(ahead, left);
    QVERIFY2(ahead.red() > ahead.blue() + 100, qPrintable(ahead.name()));
    const QColor swept = world.colourAt(1.3, 1.2);
    QVERIFY2(swept.red() > swept.blue() && swept.blue() > 150, qPrintable(swept.name()));
    QCOMPARE(world.colourAt(2.8, 1.8), QColor(Qt::white));
}

void WorldViewTest::the_footprint_is_to_scale_and_turns_with_the_robot()
{
    World world;
    const QColor free = Qt::white;
    world.tell(
        RobotState::Footprint,
        message::footprint("base_link", {message::vector(0.8, 0.2), message::vector(-0.2, 0.2),
                                         message::vector(-0.2, -0.2), message::vector(0.8, -0.2)}));
    const QColor covered = world.colourAt(1.7, 1.1);
    QVERIFY2(covered.blue() > covered.red() + 50, qPrintable(covered.name()));
    QCOMPARE(world.colourAt(1.9, 1), free);
    QCOMPARE(world.colourAt(1.7, 1.3), free);
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, pi / 2));
    QCOMPARE(world.colourAt(1.7, 1.1), free);
    QCOMPARE(world.colourAt(0.9, 1.7), covered);
    world.view.zoom(4, world.pixelOf(0.9, 1.7));
    QCOMPARE(world.colourAt(0.9, 1.7), covered);
    QCOMPARE(world.colourAt(0.9, 1.9), free);
}

void WorldViewTest::the_robot_is_in_sight_beside_its_map()
{
    World world;
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 10, -3, 0));
    world.view.grab();
    QVERIFY(world.view.rect().contains(world.pixelOf(10, -3)));
    QVERIFY(world.view.rect().contains(world.pixelOf(0, 2)));
}

void WorldViewTest::the_path_is_painted_whichever_way_it_was_driven()
{
    World world;
    const std::vector<QPointF> corners{{1, 1}, {2.5, 1}, {2.5, 1.5}, {1.2, 1.5}, {1.2, 1.2}};
    for (const QPointF& corner : corners)
        world.tell(RobotState::Odometry,
                   message::odometry("map", "base_link", corner.x(), corner.y(), 0));
    for (std::size_t i = 1; i < corners.size(); ++i) {
        const QPointF middle = (corners[i - 1] + corners[i]) / 2;
        const QPoint pixel = world.pixelOf(middle.x(), middle.y());
        const QImage picture = world.view.grab().toImage();
        bool isPainted = false; // a line may lie between two pixels
        for (int x = -1; x <= 1; ++x) {
            for (int y = -1; y <= 1; ++y)
                isPainted = isPainted || picture.pixelColor(pixel + QPoint(x, y)) == Qt::blue;
        }
        QVERIFY2(isPainted, qPrintable(QString::number(i)));
    }
}

void WorldViewTest::the_scale_has_a_bar_of_a_round_length()
{
    World world;
    const QImage picture = world.view.grab().toImage();
    const int bottom = world.view.height() - 8;
    int end = 8;
    while (picture.pixelColor(end, bottom) == QColor(Qt::black))
        ++end;
    QCOMPARE(end - 1 - 8, 50); // half a metre; the next one is too long
}

void WorldViewTest::a_turned_map_is_shown_turned()
{
    World world;
    world.tell(RobotState::Map, message::map("map", 4, 2, 1, message::pose(2, 0, pi / 2),
                                             {0, 0, 0, 100, 0, 0, 0, 100}));
    QCOMPARE(world.colourAt(0.5, 3.5), QColor(Qt::black)); // the wall is at the upper end now
    QCOMPARE(world.colourAt(1.5, 3.5), QColor(Qt::black));
    QCOMPARE(world.colourAt(0.5, 2.5), QColor(Qt::white));
}

void WorldViewTest::a_map_is_shown_by_halves_turned_and_mirrored_data()
{
    QTest::addColumn<QCborMap>("origin");
    QTest::addColumn<QPointF>("wall");
    const auto origin = [](double x, double y, double i, double j, double k, double w) {
        return QCborMap{
            {"position", message::vector(x, y)},
            {"orientation", QCborMap{{"x", i}, {"y", j}, {"z", k}, {"w", w}}},
        };
    };
    QTest::newRow("as it is") << origin(0, 0, 0, 0, 0, 1) << QPointF(3.5, 0.5);
    QTest::newRow("turned by half") << origin(4, 2, 0, 0, 1, 0) << QPointF(0.5, 1.5);
    QTest::newRow("about x") << origin(0, 2, 1, 0, 0, 0) << QPointF(3.5, 1.5);
    QTest::newRow("about y") << origin(4, 0, 0, 1, 0, 0) << QPointF(0.5, 0.5);
}

void WorldViewTest::a_map_is_shown_by_halves_turned_and_mirrored()
{
    QFETCH(const QCborMap, origin);
    QFETCH(const QPointF, wall);
    World world;
    world.view.grab();
    world.tell(RobotState::Map, message::map("map", 4, 2, 1, origin, {0, 0, 0, 100, 0, 0, 0, 0}));
    for (const double x : {0.5, 3.5}) {
        for (const double y : {0.5, 1.5}) {
            const bool isWall = wall == QPointF(x, y);
            QCOMPARE(world.colourAt(x, y), QColor(isWall ? Qt::black : Qt::white));
        }
    }
}

void WorldViewTest::a_map_turned_by_next_to_nothing_stays_as_it_is()
{
    World world;
    QCborMap map = message::map("map", 610, 610, 1, message::pose(1000, 0, 2e-11), {});
    QCborArray data;
    for (int i = 0; i < 610 * 610; ++i)
        data.append(i < 610 * 305 ? 100 : 0); // the lower half
    map[QString("data")] = data;
    world.tell(RobotState::Map, map);
    world.view.grab();                            // all is in sight now
    for (const double scale : {0.0497, 0.0503}) { // the turn is less than Qt sees, and more
        world.view.zoom(scale / world.view.toPixels().m11(), QPointF(212, 212));
        QCOMPARE(world.colourAt(1305, 100), QColor(Qt::black));
        QCOMPARE(world.colourAt(1305, 510), QColor(Qt::white));
    }
}

void WorldViewTest::walls_are_seen_on_a_map_with_more_cells_than_pixels()
{
    World world;
    QCborMap map = message::map("map", 4000, 100, 0.001, message::pose(0, 0, 0), {});
    QCborArray data;
    for (int i = 0; i < 4000 * 100; ++i)
        data.append(i % 4000 == 2001 ? 100 : 0); // a wall one cell thin
    map[QString("data")] = data;
    world.tell(RobotState::Map, map);
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 4, 0, 0));
    const QImage picture = world.view.grab().toImage();
    const QPoint wall = world.pixelOf(2.001, 0.05);
    int darkest = 255;
    for (int x = -2; x <= 2; ++x)
        darkest = std::min(darkest, picture.pixelColor(wall.x() + x, wall.y()).red());
    QVERIFY2(darkest < 245, qPrintable(QString::number(darkest)));
}

void WorldViewTest::what_is_old_is_grey()
{
    World world;
    world.age = 12s;
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, 0));
    world.tell(RobotState::Scan, message::scan("base_link", 0, 0, {1.5}));
    for (const QColor& colour : {world.colourAt(1.05, 1), world.colourAt(2.5, 1)}) {
        QCOMPARE(colour.saturation(), 0);
        QVERIFY(colour != QColor(Qt::white));
    }
    world.age = 0s;
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, 0));
    QCOMPARE(world.colourAt(1.05, 1), QColor(Qt::blue));
    world.state.end(RobotState::Clock::now());
    QVERIFY(world.colourAt(1.05, 1) != QColor(Qt::blue));
    QVERIFY(world.colourAt(3.5, 0.5) != QColor(Qt::black)); // pale, but there
    QVERIFY(world.colourAt(3.5, 0.5) != world.colourAt(2.8, 1.8));
}

void WorldViewTest::a_robot_without_a_map_is_shown_with_what_is_about_it()
{
    World world;
    world.state.begin();
    world.view.grab(); // nothing to be seen at all
    world.tell(RobotState::Odometry, message::odometry("odom", "base_link", 50, 60, 0));
    world.tell(RobotState::Scan, message::scan("base_link", 0, 0, {1}));
    QCOMPARE(world.colourAt(50.1, 60), QColor(Qt::blue));
    QCOMPARE(world.pixelOf(50, 60), QPoint(212, 212));
    QCOMPARE(world.colourAt(53, 63), QColor(Qt::white));
}

void WorldViewTest::colours_follow_the_palette()
{
    World world;
    QCOMPARE(world.colourAt(0.3, 0.3), QColor(Qt::white));
    QPalette dark = world.view.palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    world.view.setPalette(dark);
    QCOMPARE(world.colourAt(0.3, 0.3), QColor(Qt::black));
    QCOMPARE(world.colourAt(3.5, 0.5), QColor(Qt::white));
}

void WorldViewTest::far_away_places_do_no_harm()
{
    World world;
    world.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1, 5, 2}));
    const QPoint middle(212, 212);
    const auto colourInTheMiddle = [&] { return world.view.grab().toImage().pixelColor(middle); };
    for (const double far : {1e4, 1e7}) {
        for (const double x : {-far, far, 1.0}) {
            world.tell(RobotState::Odometry, message::odometry("map", "base_link", x, far, 1));
            world.view.showAll();
            world.view.grab();
            QVERIFY2(world.scale() > 0 && world.scale() < 1, qPrintable(QString::number(x)));
            world.view.setFollowing(true);
            QCOMPARE(colourInTheMiddle(), QColor(Qt::blue)); // the robot
            world.turnWheel(middle, 12000);
            QVERIFY(world.scale() > 100);
            QCOMPARE(colourInTheMiddle(), QColor(Qt::blue));
        }
    }
    // A map on the other end of the earth, seen from as near as can be.
    world.tell(RobotState::Map, message::map("map", 1, 1, 100, message::pose(1e7, -1e7, 1), {50}));
    for (int i = 0; i < 40; ++i) {
        world.view.grab();
        world.view.zoom(1.5, {0, 0});
    }
    // Back home all is as ever.
    world.tell(RobotState::Map,
               message::map("map", 4, 2, 1, message::pose(0, 0, 0), {0, 0, 0, 100, 0, 0, 0, 100}));
    world.tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, 0));
    world.view.showAll();
    QCOMPARE(world.colourAt(3.5, 0.5), QColor(Qt::black));
    QCOMPARE(world.scale(), 100.0);
    QCOMPARE(world.colourAt(1.05, 1), QColor(Qt::blue));
}

void WorldViewTest::a_map_that_just_leaves_the_sight_does_no_harm()
{
    World world;
    world.view.zoom(1, {}); // it stays where it is from now on
    const QTransform toWorld = world.view.toPixels().inverted();
    QCborMap map = message::map("map", 2, 17, 0.1498, {}, {});
    QCborArray data;
    for (int i = 0; i < 2 * 17; ++i)
        data.append(100);
    map[QString("data")] = data;
    for (const double turn : {0.0, pi}) {
        for (double pixel = -1; pixel < 1; pixel += 1 / 32.0) {
            for (const QPointF& place :
                 {QPointF(212, pixel), QPointF(212, 424 + pixel), QPointF(pixel, 212),
                  QPointF(424 + pixel, 212), QPointF(pixel, pixel)}) {
                const QPointF corner = toWorld.map(place);
                const QCborMap info = map[QString("info")].toMap();
                world.tell(RobotState::Map,
                           with(map, "info",
                                with(info, "origin", message::pose(corner.x(), corner.y(), turn))));
                QVERIFY(world.state.mapPlace());
                QVERIFY(!world.view.grab().isNull());
            }
        }
    }
}

void WorldViewTest::it_is_painted_thirty_times_a_second_at_most()
{
    World world;
    QTRY_VERIFY_WITH_TIMEOUT(world.view.paints > 0, patience);
    QCoreApplication::processEvents();
    world.view.paints = 0;
    QElapsedTimer elapsed;
    elapsed.start();
    while (world.view.paints < 5 && elapsed.elapsed() < patience) {
        world.view.refresh();
        QCoreApplication::processEvents();
    }
    QCOMPARE(world.view.paints, 5);
    QVERIFY2(elapsed.elapsed() >= 5 * 30, qPrintable(QString::number(elapsed.elapsed())));

    const auto* const timer = world.view.findChild<QTimer*>();
    QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), patience);
    world.view.hide();
    world.view.refresh();
    QVERIFY(!timer->isActive());
}

TEST_WITH_WINDOWS(WorldViewTest)

} // namespace world_view_test

#include "WorldViewTest.moc"
