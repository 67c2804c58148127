// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "ToldRobot.h"

#include <algorithm>
#include <ctime>

namespace robot_frames_test {

using namespace told_robot;

namespace {

QCborMap moved(const QString& parent, const QString& child, double x)
{
    return message::transform(parent, child, x, 0, 0);
}

/// Two robots on one map, each with a laser.
QCborMap twoRobots()
{
    return message::transforms(
        {moved("map", "robot1/odom", 10), moved("robot1/odom", "robot1/base_link", 1),
         moved("robot1/base_link", "robot1/laser", 0.5), moved("map", "robot2/odom", 20),
         moved("robot2/odom", "robot2/base_link", 2),
         moved("robot2/base_link", "robot2/sensors/laser", 0.5)});
}

QCborMap list(const QStringList& parents, const QStringList& children)
{
    QCborArray transforms;
    for (int i = 0; i < children.size(); ++i)
        transforms.append(moved(parents.at(i), children.at(i), 0.01));
    return {{QString("transforms"), transforms}};
}

QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(QStringLiteral("frame_%1").arg(i));
    return names;
}

/// Processor time of reading the message, in seconds; the least of several.
double timeToRead(const QCborMap& message)
{
    Robot robot;
    robot.tell(RobotState::Scan, message::scan("frame_1", 0, 0.1, {1}));
    robot.tell(RobotState::Transforms, message);
    double least = 1e9;
    for (int i = 0; i < 5; ++i) {
        const std::clock_t begin = std::clock();
        robot.tell(RobotState::Transforms, message);
        least = std::min(least, static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    return least;
}

} // namespace

/// Frames with prefixes, of several robots, and more of them than any robot has.
class RobotFramesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void of_several_robots_the_one_with_the_scan_is_shown_data();
    void of_several_robots_the_one_with_the_scan_is_shown();
    void of_several_robots_the_one_with_the_odometry_is_shown();
    void a_laser_that_is_told_of_before_the_frames_finds_its_robot();
    void odometry_without_the_prefix_of_the_frames_is_no_other_robot();
    void headers_need_not_give_the_prefix();
    void without_scan_and_odometry_one_robot_is_found_and_none_of_several();
    void a_long_chain_costs_what_as_many_single_frames_cost();
    void a_message_of_absurdly_many_frames_is_refused();
    void parents_that_are_always_new_take_bounded_room();
};

void RobotFramesTest::of_several_robots_the_one_with_the_scan_is_shown_data()
{
    QTest::addColumn<QString>("frame");
    QTest::addColumn<double>("x");
    QTest::newRow("first") << "robot1/laser" << 11.0;
    QTest::newRow("with a slash before") << "/robot1/laser" << 11.0;
    QTest::newRow("second, further inside") << "robot2/sensors/laser" << 22.0;
}

void RobotFramesTest::of_several_robots_the_one_with_the_scan_is_shown()
{
    QFETCH(const QString, frame);
    QFETCH(const double, x);
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Transforms, twoRobots());
    robot.tell(RobotState::Scan, message::scan(frame, 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(x, 0));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(x + 0.5, 0));
    QCOMPARE(seen(robot.state.mapPlace()), QPointF(1, 2));
}

void RobotFramesTest::of_several_robots_the_one_with_the_odometry_is_shown()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Transforms, twoRobots());
    robot.tell(RobotState::Odometry, message::odometry("robot2/odom", "robot2/base_link", 2, 0, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(22, 0));
}

void RobotFramesTest::a_laser_that_is_told_of_before_the_frames_finds_its_robot()
{
    Robot robot;
    robot.tell(RobotState::Scan, message::scan("robot2/camera", 0, 0.1, {1}));
    robot.tell(RobotState::Transforms, twoRobots());
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(22, 0));
    QVERIFY(!robot.state.raysPlace()); // its own frame is not told of
    robot.tell(RobotState::Transforms,
               message::transforms({moved("robot2/base_link", "robot2/camera", 0.2)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(22.2, 0));
}

void RobotFramesTest::odometry_without_the_prefix_of_the_frames_is_no_other_robot()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 5, 0, 0));
    robot.tell(RobotState::Transforms, twoRobots());
    robot.tell(RobotState::Scan, message::scan("robot1/laser", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(11, 0));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(11.5, 0));
}

void RobotFramesTest::headers_need_not_give_the_prefix()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Transforms,
               message::transforms({moved("robot1/map", "robot1/odom", 10),
                                    moved("robot1/odom", "robot1/base_footprint", 1),
                                    moved("robot1/base_footprint", "robot1/laser", 0.5)}));
    robot.tell(RobotState::Scan, message::scan("/laser", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(11, 0));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(11.5, 0));
    QCOMPARE(seen(robot.state.mapPlace()), QPointF(1, 2));
}

void RobotFramesTest::without_scan_and_odometry_one_robot_is_found_and_none_of_several()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({moved("robot1/odom", "robot1/base_link", 1)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 0));
    QVERIFY2(!robot.notes().contains("several robots"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms, twoRobots());
    QVERIFY(!robot.state.robotPlace());
    QVERIFY2(robot.notes().contains("several robots on /tf: robot1/base_link, robot2/base_link. "),
             qPrintable(robot.notes()));
}

void RobotFramesTest::a_long_chain_costs_what_as_many_single_frames_cost()
{
    const QStringList children = numbered(990);
    QStringList parents = children; // of each the one before
    parents.prepend("odom");
    parents.removeLast();
    QStringList single;
    std::fill_n(std::back_inserter(single), children.size(), QStringLiteral("odom"));
    const double chain = timeToRead(list(parents, children));
    const double singles = timeToRead(list(single, children));
    QVERIFY2(chain < 8 * singles, qPrintable(QStringLiteral("%1 s, %2 s").arg(chain).arg(singles)));
}

void RobotFramesTest::a_message_of_absurdly_many_frames_is_refused()
{
    Robot robot;
    robot.tell(RobotState::Transforms, message::transforms({goodTransform()}));
    const QStringList children = numbered(2000);
    robot.tell(RobotState::Transforms, list(children, children));
    QVERIFY2(robot.notes().contains("has 2000 frames; at most 1000"), qPrintable(robot.notes()));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
}

void RobotFramesTest::parents_that_are_always_new_take_bounded_room()
{
    Robot robot;
    for (int i = 0; i < 1100; ++i)
        robot.tell(RobotState::Transforms,
                   message::transforms({moved(QString::number(i), "base_link", i)}));
    QVERIFY2(robot.notes().contains("more than 1000 frames"), qPrintable(robot.notes()));
    QVERIFY(robot.state.robotPlace());
}

TEST_WITHOUT_WINDOWS(RobotFramesTest)

} // namespace robot_frames_test

#include "RobotFramesTest.moc"
