// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "ToldRobot.h"

#include "host/device/connection/Remappings.h"

namespace robot_state_test {

using namespace std::chrono_literals;
using namespace told_robot;

/// What a robot told, from its messages, good and bad: its map, its arm, and what is missing or
/// old. Where it is and what its laser sees have tests of their own.
class RobotStateTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_topic_can_be_mapped_to_another_name();
    void a_map_lies_where_its_origin_says();
    void a_map_with_a_turned_origin_lies_turned();
    void a_bad_map_changes_nothing_and_is_told_of_data();
    void a_bad_map_changes_nothing_and_is_told_of();
    void bad_messages_are_told_of_with_the_robots_name_of_the_topic();
    void axes_are_told_in_parts();
    void bad_axes_change_nothing_and_are_told_of();
    void a_foreign_arm_shows_its_own_joints();
    void what_is_old_says_so();
    void what_is_missing_is_told_plainly();
    void nothing_is_called_missing_before_it_is_due();
    void the_picture_outlives_the_link_and_the_switches_do_not();
    void another_link_begins_with_nothing();
};

void RobotStateTest::every_topic_can_be_mapped_to_another_name()
{
    using host::device::connection::Remappings;
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto& topic = RobotState::info(static_cast<RobotState::Topic>(i)).topic;
        const Remappings::Entry* const entry = Remappings::find(topic.name);
        QVERIFY2(entry, topic.name.data());
        QCOMPARE(entry->type, QString(topic.type));
    }
}

void RobotStateTest::a_map_lies_where_its_origin_says()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    const QImage& cells = robot.state.map()->cells;
    QCOMPARE(cells.size(), QSize(3, 2));
    QCOMPARE(cells.pixelIndex(0, 0), 0);
    QCOMPARE(cells.pixelIndex(1, 0), 50);
    QCOMPARE(cells.pixelIndex(2, 0), 100);
    QCOMPARE(cells.pixelIndex(0, 1), int(GridMap::unknown));
    QCOMPARE(robot.state.map()->resolution, 0.5);
    QCOMPARE(seen(robot.state.mapPlace(), {1.5, 1}), QPointF(2.5, 3));
}

void RobotStateTest::a_map_with_a_turned_origin_lies_turned()
{
    Robot robot;
    robot.tell(RobotState::Map, mapInfo("origin", message::pose(1, 2, pi / 2)));
    QCOMPARE(seen(robot.state.mapPlace(), {1.5, 1}), QPointF(0, 3.5));
}

void RobotStateTest::a_bad_map_changes_nothing_and_is_told_of_data()
{
    const auto origin = [](const QCborMap& position, const QCborMap& orientation) {
        return mapInfo("origin", QCborMap{{"position", position}, {"orientation", orientation}});
    };
    const QCborMap zero{{"x", 0}, {"y", 0}, {"z", 0}, {"w", 0}};
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QCborMap() << "header";
    QTest::newRow("empty") << message::map("map", 0, 0, 0.5, message::pose(0, 0, 0), {}) << "width";
    QTest::newRow("too few cells") << mapInfo("height", 3) << "6 cells, not 3 x 3";
    QTest::newRow("too many cells") << mapInfo("height", 1) << "6 cells, not 3 x 1";
    QTest::newRow("too wide") << mapInfo("width", 40000) << "width";
    QTest::newRow("beyond all numbers") << mapInfo("height", 1e300) << "height";
    QTest::newRow("negative size") << mapInfo("height", -2) << "height";
    QTest::newRow("size with a fraction") << mapInfo("height", 1.5) << "height";
    QTest::newRow("no resolution") << mapInfo("resolution", 0) << "resolution";
    QTest::newRow("resolution nan") << mapInfo("resolution", noNumber) << "resolution";
    QTest::newRow("resolution infinite") << mapInfo("resolution", infinite) << "resolution";
    QTest::newRow("origin nan") << origin(message::vector(noNumber, 0), message::turn(0))
                                << "position.x";
    QTest::newRow("origin beyond the earth")
        << origin(message::vector(0, 1e30), message::turn(0)) << "position.y";
    QTest::newRow("turn not normalised")
        << origin(message::vector(0, 0), with(zero, "w", 2)) << "orientation";
    QTest::newRow("turn zero") << origin(message::vector(0, 0), zero) << "orientation";
    QTest::newRow("turn nan") << origin(message::vector(0, 0), with(zero, "w", noNumber))
                              << "orientation";
    QTest::newRow("cells as text") << with(goodMap(), "data", "map") << "data";
    QTest::newRow("info as text") << with(goodMap(), "info", "map") << "info";
}

void RobotStateTest::a_bad_map_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    QFETCH(const QString, reason);
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    const qint64 cells = robot.state.map()->cells.cacheKey();
    robot.tell(RobotState::Map, message);
    QCOMPARE(robot.state.map()->cells.cacheKey(), cells);
    QCOMPARE(seen(robot.state.mapPlace(), {1.5, 1}), QPointF(2.5, 3));
    QVERIFY2(robot.notes().contains("topic /map was ignored: "), qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains(reason), qPrintable(robot.notes()));
    robot.tell(RobotState::Map, goodMap());
    QVERIFY2(!robot.notes().contains("/map"), qPrintable(robot.notes()));
}

void RobotStateTest::bad_messages_are_told_of_with_the_robots_name_of_the_topic()
{
    Robot robot;
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto topic = static_cast<RobotState::Topic>(i);
        robot.state.setName(topic, "/robot_2" + QString(RobotState::info(topic).topic.name));
        robot.tell(topic, {});
        const QString words = QString("topic /robot_2%1 was ignored: ");
        QVERIFY2(robot.notes().contains(words.arg(RobotState::info(topic).topic.name)),
                 qPrintable(robot.notes()));
    }
}

void RobotStateTest::axes_are_told_in_parts()
{
    Robot robot;
    QVERIFY(!robot.state.axis(0).present);
    robot.tell(RobotState::JointStates,
               message::jointStates({"wheel", "axis8", "axis0"}, {9, 8, 1}));
    robot.tell(RobotState::JointStates, message::jointStates({"axis1"}, {2}));
    robot.tell(RobotState::ArmState, message::armState({"axis0", "axis1"}, {10, 20}));
    QCOMPARE(robot.state.axis(0).present, std::optional<float>(1.0F));
    QCOMPARE(robot.state.axis(1).present, std::optional<float>(2.0F));
    QCOMPARE(robot.state.axis(8).present, std::optional<float>(8.0F));
    QVERIFY(!robot.state.axis(2).present);
    QCOMPARE(robot.state.axis(0).target, std::optional<float>(10.0F));
    QCOMPARE(robot.state.axis(1).target, std::optional<float>(20.0F));
    QVERIFY(!robot.state.axis(8).target);
    robot.now += 3s;
    robot.tell(RobotState::JointStates, message::jointStates({"wheel"}, {9}));
    QCOMPARE(robot.state.overdue(RobotState::JointStates, robot.now), QString("3 s"));
}

void RobotStateTest::bad_axes_change_nothing_and_are_told_of()
{
    Robot robot;
    robot.tell(RobotState::JointStates, message::jointStates({"axis0"}, {1}));
    robot.tell(RobotState::ArmState, message::armState({"axis0"}, {2}));
    for (const QCborMap& bad : {message::jointStates({"axis0"}, {}),
                                message::jointStates({"axis0", "axis1"}, {5, noNumber}),
                                message::jointStates({"axis0", "axis1"}, {5}), QCborMap()})
        robot.tell(RobotState::JointStates, bad);
    robot.tell(RobotState::ArmState, message::armState({"axis0"}, {infinite}));
    QCOMPARE(robot.state.axis(0).present, std::optional<float>(1.0F));
    QCOMPARE(robot.state.axis(0).target, std::optional<float>(2.0F));
    QVERIFY2(robot.notes().contains("topic /joint_states was ignored: "),
             qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains("topic /arm/state was ignored: "), qPrintable(robot.notes()));
    robot.tell(RobotState::Torque, message::truth(true));
    robot.tell(RobotState::Torque, QCborMap{{"data", 0}});
    QCOMPARE(robot.state.isSet(RobotState::Torque), std::optional<bool>(true));
}

void RobotStateTest::a_foreign_arm_shows_its_own_joints()
{
    using host::device::readers::JointTable;
    Robot robot;
    robot.tell(RobotState::JointStates, message::jointStates({"axis0"}, {1}));
    JointTable table(QStringList{"shoulder", "elbow"});
    table.setJoint(1, {"elbow", JointTable::Unit::Radians, true, 10});
    robot.state.setJoints(table, {"a", "b", "c", "d", "e"});
    QVERIFY(!robot.state.axis(0).present); // it is another joint now
    robot.tell(RobotState::JointStates, message::jointStates({"elbow", "shoulder"}, {20, 30}));
    robot.tell(RobotState::ArmState, message::armState({"shoulder", "elbow"}, {40, 50}));
    QCOMPARE(robot.state.axis(0).present, std::optional<float>(30.0F));
    QCOMPARE(robot.state.axis(1).present, std::optional<float>(-10.0F));
    QCOMPARE(robot.state.axis(0).target, std::optional<float>(40.0F));
    QCOMPARE(robot.state.axis(1).target, std::optional<float>(-40.0F));
    QVERIFY2(robot.notes().contains("not shown: a, b, c and 2 more."), qPrintable(robot.notes()));
    robot.state.begin(); // the table is the device's, not the link's
    QVERIFY(robot.state.joints() == table);
}

void RobotStateTest::what_is_old_says_so()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}));
    robot.tell(RobotState::JointStates, message::jointStates({"axis0"}, {1}));
    robot.tell(RobotState::ArmState, message::armState({"axis0"}, {1}));
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Torque, message::truth(true));
    robot.now += 2s;
    QVERIFY2(!robot.notes().contains("old"), qPrintable(robot.notes()));
    robot.now += 10s;
    for (const char* note :
         {"The position is 12 s old.", "The laser's scan is 12 s old.",
          "The axes' positions are 12 s old.", "The axes' targets are 12 s old."})
        QVERIFY2(robot.notes().contains(note), qPrintable(robot.notes()));
    QCOMPARE(robot.notes().count("old"), 4); // a state does not grow old
    robot.now += 107s;
    QVERIFY2(robot.notes().contains("The position is 119 s old."), qPrintable(robot.notes()));
    robot.now += 1s;
    QVERIFY2(robot.notes().contains("The position is 2 min old."), qPrintable(robot.notes()));
    robot.now += 1min;
    QVERIFY2(robot.notes().contains("The position is 3 min old."), qPrintable(robot.notes()));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    QVERIFY2(!robot.notes().contains("position is"), qPrintable(robot.notes()));
}

void RobotStateTest::what_is_missing_is_told_plainly()
{
    RobotState state;
    const auto now = RobotState::Clock::now();
    state.begin();
    for (int i = 0; i < RobotState::TopicCount; ++i)
        state.setPublished(static_cast<RobotState::Topic>(i), false, now);
    QCOMPARE(state.notes(now),
             QStringList({"No map: the robot does not publish /map.",
                          "No position: the robot does not publish /tf or /odom.",
                          "No laser: the robot does not publish /scan.",
                          "No axes of the arm: the robot does not publish /joint_states."}));
}

void RobotStateTest::nothing_is_called_missing_before_it_is_due()
{
    RobotState state;
    const auto now = RobotState::Clock::now();
    state.begin();
    QCOMPARE(state.notes(now + 1h), QStringList()); // nobody asked yet
    state.setPublished(RobotState::Map, true, now);
    state.setPublished(RobotState::Odometry, true, now);
    state.setPublished(RobotState::Scan, true, now);
    state.setPublished(RobotState::JointStates, true, now);
    QCOMPARE(state.notes(now + 2s), QStringList());
    state.setPublished(RobotState::Map, true, now + 2s); // that was known
    QCOMPARE(state.notes(now + 3s).first(), QString("No map: no valid message on /map yet."));
}

void RobotStateTest::the_picture_outlives_the_link_and_the_switches_do_not()
{
    Robot robot;
    robot.now -= 1h; // when it was seen last
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Torque, message::truth(true));
    for (int frame = 0; frame < 20; ++frame) {
        robot.now += 100ms;
        robot.tell(RobotState::Camera, message::cameraInfo());
    }
    QVERIFY(robot.state.cameraRate(robot.now) > 0);
    robot.state.end(robot.now + 1h);
    QVERIFY(!robot.state.isConnected());
    QCOMPARE(robot.state.cameraRate(robot.now), 0U);
    QVERIFY(robot.state.mapPlace());
    QVERIFY(!robot.state.isSet(RobotState::Torque));
    const QDateTime seen = QDateTime::currentDateTime().addSecs(-3600);
    const auto words = [](const QDateTime& time) {
        return "Not connected: last seen " + time.toString("HH:mm:ss") + ".";
    };
    QVERIFY2(QStringList({words(seen), words(seen.addSecs(-1)), words(seen.addSecs(-2))})
                 .contains(robot.notes()),
             qPrintable(robot.notes()));
}

void RobotStateTest::another_link_begins_with_nothing()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.state.end(robot.now);
    robot.state.begin();
    QVERIFY(robot.state.isConnected());
    QVERIFY(!robot.state.map());
    QVERIFY(!robot.state.robotPlace());
    QCOMPARE(robot.notes(), QString());

    RobotState unseen;
    QCOMPARE(unseen.notes(robot.now), QStringList("Not connected."));
}

TEST_WITHOUT_WINDOWS(RobotStateTest)

} // namespace robot_state_test

#include "RobotStateTest.moc"
