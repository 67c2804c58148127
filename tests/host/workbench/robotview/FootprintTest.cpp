// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "ToldRobot.h"

#include <QtTest>

namespace footprint_test {

using namespace told_robot;

namespace {

QCborMap goodFootprint()
{
    return message::footprint(
        "base_link", {message::vector(1, 0), message::vector(-1, 1), message::vector(-1, -1)});
}

} // namespace

/// What a robot covers of the floor.
class FootprintTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_lies_where_its_frame_is();
    void a_frame_of_which_nothing_is_told_has_no_place();
    void a_bad_one_changes_nothing_and_is_told_of_data();
    void a_bad_one_changes_nothing_and_is_told_of();
};

void FootprintTest::it_lies_where_its_frame_is()
{
    Robot robot;
    robot.tell(RobotState::Footprint, goodFootprint());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 2, 3, pi / 2));
    QCOMPARE(robot.state.footprint()->outline, QPolygonF({{1, 0}, {-1, 1}, {-1, -1}}));
    QCOMPARE(seen(robot.state.footprintPlace(), {1, 0}), QPointF(2, 4));
}

void FootprintTest::a_frame_of_which_nothing_is_told_has_no_place()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 2, 3, 0));
    QVERIFY(!robot.state.footprintPlace());
    robot.tell(RobotState::Footprint,
               message::with(goodFootprint(), "header", message::header("trailer")));
    QVERIFY(!robot.state.footprintPlace());
}

void FootprintTest::a_bad_one_changes_nothing_and_is_told_of_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("reason");
    const auto withPoint = [](const QCborMap& point) {
        return message::footprint("base_link",
                                  {message::vector(1, 0), point, message::vector(-1, -1)});
    };
    QTest::newRow("nothing") << QCborMap() << "header";
    QTest::newRow("a line") << message::footprint("base_link",
                                                  {message::vector(1, 0), message::vector(0, 1)})
                            << "\"polygon.points\" has 2 points, not 3 to 1000";
    QTest::newRow("points as text")
        << message::with(goodFootprint(), "polygon", QCborMap{{"points", "round"}})
        << "\"polygon.points\" has 0 points";
    QTest::newRow("nan") << withPoint(message::vector(noNumber, 0))
                         << "\"polygon.points\" has a point 2 that is no place in metres";
    QTest::newRow("far away") << withPoint(message::vector(0, 1e30)) << "a point 2";
    QTest::newRow("no number") << withPoint({{"x", 1}}) << "a point 2";
}

void FootprintTest::a_bad_one_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    QFETCH(const QString, reason);
    Robot robot;
    robot.tell(RobotState::Footprint, goodFootprint());
    const QPolygonF outline = robot.state.footprint()->outline;
    robot.tell(RobotState::Footprint, message);
    QCOMPARE(robot.state.footprint()->outline, outline);
    QVERIFY2(robot.notes().contains("topic /footprint was ignored: "), qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains(reason), qPrintable(robot.notes()));
}

TEST_WITHOUT_WINDOWS(FootprintTest)

} // namespace footprint_test

#include "FootprintTest.moc"
