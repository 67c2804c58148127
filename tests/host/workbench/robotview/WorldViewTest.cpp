// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RobotMessages.h"
#include "Tell.h"
#include "TestCase.h"

#include "host/workbench/robotview/WorldView.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

namespace world_view_test {

using namespace host::workbench::robotview;
using namespace std::chrono_literals;
using message::with;

namespace {

constexpr int patience = 30000;
constexpr double pi = 3.14159265358979323846;

/// Counts how often it is painted.
class CountingView : public WorldView
{
public:
    using WorldView::WorldView;

    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        WorldView::paintEvent(event);
    }
};

/// A view of a robot on a map of 4 x 2 metres, with a wall at its right end; the robot is at
/// (1, 1) and looks ahead.
struct World
{
    World()
    {
        state.begin();
        tell(RobotState::Map,
             message::map("map", 4, 2, 1, message::pose(0, 0, 0), {0, 0, 0, 100, 0, 0, 0, 100}));
        tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, 0));
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::white);
        palette.setColor(QPalette::Text, Qt::black);
        palette.setColor(QPalette::Highlight, Qt::blue);
        view.setPalette(palette);
        view.resize(424, 424); // 100 pixels a metre, with the margins
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view, patience));
    }

    void tell(RobotState::Topic topic, const QCborMap& message)
    {
        ::tell(state, topic, message, RobotState::Clock::now() - age);
    }

    QColor colourAt(double x, double y)
    {
        const QImage picture = view.grab().toImage();
        return picture.pixelColor(pixelOf(x, y));
    }

    QPoint pixelOf(double x, double y) const
    {
        return view.toPixels().map(QPointF(x, y)).toPoint();
    }

    void turnWheel(const QPoint& pixel, int angle)
    {
        QWheelEvent event(pixel, view.mapToGlobal(pixel), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    }

    /// QTest's own tells of no buttons with Qt 5.
    void moveMouse(const QPoint& pixel, Qt::MouseButtons buttons)
    {
        QMouseEvent event(QEvent::MouseMove, pixel, view.mapToGlobal(pixel), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    }

    double scale() const { return view.toPixels().m11(); }

    std::chrono::seconds age{0};
    RobotState state;
    CountingView view{state};
};

} // namespace

/// The picture of the world, and how it is moved.
class WorldViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_shows_all_at_first();
    void map_robot_and_rays_are_where_they_are_told();
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
    void the_wheel_zooms_about_the_pointer();
    void keys_zoom_and_move();
    void dragging_moves();
    void following_keeps_the_robot_in_the_middle_until_the_view_is_moved();
    void zooming_while_following_keeps_the_robot_in_the_middle();
    void zooming_has_limits();
    void it_shows_all_again_when_told();
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

void WorldViewTest::the_wheel_zooms_about_the_pointer()
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

void WorldViewTest::keys_zoom_and_move()
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

void WorldViewTest::dragging_moves()
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

void WorldViewTest::following_keeps_the_robot_in_the_middle_until_the_view_is_moved()
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

void WorldViewTest::zooming_while_following_keeps_the_robot_in_the_middle()
{
    World world;
    world.view.setFollowing(true);
    world.turnWheel({10, 10}, 120);
    world.view.grab();
    QVERIFY(world.view.isFollowing());
    QCOMPARE(world.scale(), 125.0);
    QCOMPARE(world.pixelOf(1, 1), QPoint(212, 212));
}

void WorldViewTest::zooming_has_limits()
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

void WorldViewTest::it_shows_all_again_when_told()
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
