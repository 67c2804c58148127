// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "ToldRobot.h"

namespace robot_place_test {

using namespace std::chrono_literals;
using namespace told_robot;

/// Where a robot is and where it drove, from its transforms and its odometry, good and bad.
class RobotPlaceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_robot_is_found_through_a_chain_of_frames();
    void static_frames_count_as_well();
    void what_never_moves_does_not_grow_old();
    void a_map_may_lie_in_a_larger_frame();
    void a_leading_slash_of_a_frame_does_not_matter();
    void odometry_alone_places_the_robot();
    void transforms_go_before_odometry();
    void the_robot_is_its_base_link_rather_than_its_footprint();
    void a_map_that_the_robot_has_no_place_on_is_not_shown();
    void a_bad_transform_changes_nothing_and_is_told_of_data();
    void a_bad_transform_changes_nothing_and_is_told_of();
    void frames_never_come_in_a_loop();
    void frames_have_a_bound();
    void bad_odometry_changes_nothing_and_is_told_of();
    void the_path_is_where_the_robot_drove();
    void the_path_does_not_guess_the_way_between();
    void the_path_begins_anew_in_another_world();
    void a_long_path_takes_bounded_room();
};

void RobotPlaceTest::the_robot_is_found_through_a_chain_of_frames()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 10, 0, pi / 2),
                                    message::transform("odom", "base_link", 2, 1, pi / 2)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(9, 2));
    QCOMPARE(seen(robot.state.robotPlace(), {1, 0}), QPointF(8, 2)); // it looks back
}

void RobotPlaceTest::static_frames_count_as_well()
{
    Robot robot;
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("base_link", "laser", 0.5, 0, 0)}));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.tell(RobotState::Scan, goodScan());
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1.5, 2));
}

void RobotPlaceTest::what_never_moves_does_not_grow_old()
{
    Robot robot;
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("base_footprint", "base_link", 0, 0, 0)}));
    const QCborMap place =
        message::transforms({message::transform("odom", "base_footprint", 1, 2, 0)});
    robot.tell(RobotState::Transforms, place);
    robot.now += 1h;
    QVERIFY2(robot.notes().contains("position is"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms, place);
    QVERIFY2(!robot.notes().contains("position is"), qPrintable(robot.notes()));
}

void RobotPlaceTest::a_map_may_lie_in_a_larger_frame()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("earth", "map", 1000, 2000, pi / 2),
                                    message::transform("earth", "base_link", 1000, 2005, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(5, 0));
    QCOMPARE(seen(robot.state.mapPlace()), QPointF(1, 2));
}

void RobotPlaceTest::a_leading_slash_of_a_frame_does_not_matter()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("/odom", "/base_link", 1, 2, 0),
                                    message::transform("base_link", "laser", 1, 0, 0)}));
    robot.tell(RobotState::Scan, message::scan("/laser", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 2));
}

void RobotPlaceTest::odometry_alone_places_the_robot()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "robot", 1, 2, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
    robot.tell(RobotState::Odometry, message::odometry("odom", "robot", 3, 2, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(3, 2));
    robot.tell(RobotState::Scan, goodScan());
    QVERIFY(!robot.state.raysPlace());
    QVERIFY2(robot.notes().contains("The laser is not shown") && robot.notes().contains("laser\""),
             qPrintable(robot.notes()));
    robot.tell(RobotState::Scan, message::scan("robot", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(3, 2));
}

void RobotPlaceTest::transforms_go_before_odometry()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("corrected", "base_link", 5, 6, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(5, 6));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 3, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(5, 6));
}

void RobotPlaceTest::the_robot_is_its_base_link_rather_than_its_footprint()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_footprint", 1, 0, 0),
                                    message::transform("base_footprint", "base_link", 0.5, 0, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1.5, 0));
}

void RobotPlaceTest::a_map_that_the_robot_has_no_place_on_is_not_shown()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    QVERIFY(robot.state.mapPlace());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    QVERIFY(!robot.state.mapPlace());
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
    QVERIFY2(robot.notes().contains("The map is not shown"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 10, 0, 0)}));
    QVERIFY(robot.state.mapPlace());
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(11, 2));
}

void RobotPlaceTest::a_bad_transform_changes_nothing_and_is_told_of_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("reason");
    const auto newRow = [](const char* name, const QCborMap& transform, const char* reason) {
        // One that is good goes before it, and counts for nothing.
        QTest::newRow(name) << message::transforms(
                                   {message::transform("odom", "base_link", 7, 7, 0), transform})
                            << reason;
    };
    const QCborMap good = goodTransform();
    const QCborMap turn = message::turn(0);
    const auto moved = [&](const QCborMap& shift, const QCborMap& turn) {
        return message::transform("odom", "base_link", shift, turn);
    };
    newRow("nan", moved(message::vector(noNumber, 0), turn), "translation.x");
    newRow("infinite", moved(message::vector(0, -infinite), turn), "translation.y");
    newRow("beyond the earth", moved(message::vector(0, 0, 1e9), turn), "translation.z");
    newRow("not normalised", moved(message::vector(0, 0), with(turn, "w", 1.1)), "rotation");
    newRow("turn nan", moved(message::vector(0, 0), with(turn, "z", noNumber)), "rotation");
    newRow("turn missing", moved(message::vector(0, 0), {}), "rotation.x");
    newRow("no child", with(good, "child_frame_id", ""), "child_frame_id");
    newRow("child a number", with(good, "child_frame_id", 1), "child_frame_id");
    newRow("no parent", with(good, "header", message::header("/")), "frame_id");
    newRow("its own parent", message::transform("a", "a", 0, 0, 0), "is its own ancestor");
    newRow("no stamp", with(good, "header", QCborMap{{"frame_id", "odom"}}), "stamp");
    newRow("nothing", {}, "header");
    QTest::newRow("not even a list") << QCborMap{{"transforms", "odom"}} << "not an array";
    QTest::newRow("nothing at all") << QCborMap() << "not an array";
}

void RobotPlaceTest::a_bad_transform_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    QFETCH(const QString, reason);
    Robot robot;
    robot.tell(RobotState::Transforms, message::transforms({goodTransform()}));
    robot.tell(RobotState::Transforms, message);
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
    QVERIFY2(robot.notes().contains("topic /tf was ignored: "), qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains(reason), qPrintable(robot.notes()));
}

void RobotPlaceTest::frames_never_come_in_a_loop()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 1, 0, 0),
                                    message::transform("odom", "base_link", 1, 0, 0)}));
    for (const char* ancestor : {"map", "odom"}) {
        robot.tell(RobotState::Transforms,
                   message::transforms({message::transform("base_link", ancestor, 1, 0, 0)}));
        QVERIFY2(robot.notes().contains("is its own ancestor"), qPrintable(robot.notes()));
        QCOMPARE(seen(robot.state.robotPlace()), QPointF(2, 0));
    }
    // Within one message as well.
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("x", "y", 1, 0, 0),
                                    message::transform("y", "z", 1, 0, 0),
                                    message::transform("z", "x", 1, 0, 0)}));
    QVERIFY2(robot.notes().contains("is its own ancestor"), qPrintable(robot.notes()));
    robot.tell(RobotState::Scan, message::scan("z", 0, 0.1, {1}));
    QVERIFY(!robot.state.raysPlace());
}

void RobotPlaceTest::frames_have_a_bound()
{
    Robot robot;
    robot.tell(RobotState::Transforms, message::transforms({goodTransform()}));
    for (int i = 0; i < 2000; ++i)
        robot.tell(RobotState::Transforms,
                   message::transforms({message::transform("odom", QString::number(i), 0, 0, 0)}));
    QVERIFY2(robot.notes().contains("more than 1000 frames"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 3, 4, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(3, 4));
}

void RobotPlaceTest::bad_odometry_changes_nothing_and_is_told_of()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    const QCborMap good = message::odometry("odom", "base_link", 3, 4, 0);
    for (const QCborMap& bad :
         {QCborMap(), with(good, "pose", "here"), with(good, "child_frame_id", QCborValue()),
          with(good, "child_frame_id", "odom"),
          message::odometry("odom", "other", noNumber, 0, 0)}) {
        robot.tell(RobotState::Odometry, bad);
        QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
        QVERIFY2(robot.notes().contains("topic /odom was ignored: "), qPrintable(robot.notes()));
    }

    Robot other; // which calls itself as no other does
    other.tell(RobotState::Odometry, message::odometry("odom", "its_base", 1, 2, 0));
    other.tell(RobotState::Odometry, message::odometry("its_base", "odom", 1, 2, 0));
    QVERIFY2(other.notes().contains("topic /odom was ignored: "), qPrintable(other.notes()));
    QCOMPARE(seen(other.state.robotPlace()), QPointF(1, 2));
}

void RobotPlaceTest::the_path_is_where_the_robot_drove()
{
    Robot robot;
    for (const double x : {0.0, 1.0, 1.0, 1.001, 2.0})
        robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", x, 0, 0));
    QCOMPARE(robot.state.path().lines(), QVector<QLineF>({QLineF(0, 0, 1, 0), QLineF(1, 0, 2, 0)}));
    robot.tell(RobotState::Scan, goodScan()); // tells nothing of the place
    QCOMPARE(robot.state.path().lines().size(), 2);
}

void RobotPlaceTest::the_path_does_not_guess_the_way_between()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 0, 0, 0));
    robot.now += 3s;
    robot.tell(RobotState::Scan, goodScan());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 5, 0, 0));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 6, 0, 0));
    QCOMPARE(robot.state.path().lines(), QVector<QLineF>({QLineF(5, 0, 6, 0)}));
}

void RobotPlaceTest::the_path_begins_anew_in_another_world()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 0, 0, 0));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 0, 0));
    QCOMPARE(robot.state.path().lines().size(), 1);
    robot.now += 1s;
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("map", "odom", 100, 0, 0)}));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 2, 0, 0));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 3, 0, 0));
    QCOMPARE(robot.state.path().lines(), QVector<QLineF>({QLineF(102, 0, 103, 0)}));
}

void RobotPlaceTest::a_long_path_takes_bounded_room()
{
    Path path;
    constexpr int steps = 20000;
    for (int i = 0; i <= steps; ++i) {
        path.add(QPointF(0.1 * i, 0));
        QVERIFY(path.lines().size() <= Path::mostLines);
    }
    QVERIFY(path.lines().size() > Path::mostLines / 4);
    QCOMPARE(path.lines().first().p1(), QPointF(0, 0)); // it is whole, and only coarser
    QVERIFY(path.lines().last().x2() > 0.1 * steps - 10);
    for (int i = 1; i < path.lines().size(); ++i)
        QCOMPARE(path.lines()[i].p1(), path.lines()[i - 1].p2());
    QVERIFY(path.lines().last().length() > 0.15); // coarser than what is added now, too

    path.clear();
    for (int i = 0; i <= 2 * Path::mostLines; ++i) { // single lines, that none can be left out of
        path.interrupt();
        path.add(QPointF(i, 0));
        path.add(QPointF(i + 0.9, 0));
        QVERIFY(path.lines().size() <= Path::mostLines);
    }
    QCOMPARE(path.lines().last(), QLineF(2 * Path::mostLines, 0, 2 * Path::mostLines + 0.9, 0));
}

TEST_WITHOUT_WINDOWS(RobotPlaceTest)

} // namespace robot_place_test

#include "RobotPlaceTest.moc"
