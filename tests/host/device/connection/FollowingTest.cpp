// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Journal.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/connection/Connection.h"

#include <QtTest>

namespace following_test {

using host::device::connection::Connection;
using host::device::connection::Timing;

namespace {

constexpr int patience = 60000;

} // namespace

/// What is heard of a robot on the link, and asked of it.
class FollowingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_topic_that_is_followed_late_is_heard_on_the_open_link();
    void all_followers_of_a_topic_hear_each_message();
    void a_late_follower_is_told_a_state_that_was_told_before();
    void a_throttled_follower_asks_for_the_newest_only();
    void a_follower_that_left_hears_nothing_more();
    void a_follower_that_left_is_not_there_on_the_next_link_either();
    void a_follower_may_leave_while_it_hears();
    void a_call_that_is_not_answered_fails_in_time();
    void what_the_robot_says_about_the_link_is_in_the_base_log();
    void a_message_that_is_not_understood_is_warned_of_and_ignored();
};

void FollowingTest::a_topic_that_is_followed_late_is_heard_on_the_open_link()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    int messages = 0;
    connection.follow("/topic", "std_msgs/Empty", [&](const QCborMap&) { ++messages; });
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty"), 1, patience);
    robot.publish("/topic", {});
    QTRY_COMPARE_WITH_TIMEOUT(messages, 1, patience);
}

void FollowingTest::all_followers_of_a_topic_hear_each_message()
{
    FakeRobot robot;
    Connection connection(noHurry());
    QStringList heard;
    connection.follow("/topic", "std_msgs/Int32",
                      [&](const QCborMap& msg) { heard << msg["data"].toVariant().toString(); });
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    connection.follow("topic", "std_msgs/Int32", [&](const QCborMap& msg) {
        heard << "late " + msg["data"].toVariant().toString();
    });
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Int32"), 2, patience);
    robot.publish("/topic", {{"data", 1}});
    robot.publish("/topic", {{"data", 2}});
    QTRY_COMPARE_WITH_TIMEOUT(heard.size(), 4, patience);
    heard.sort(); // those of one message come in any order
    QCOMPARE(heard, QStringList({"1", "2", "late 1", "late 2"}));
}

void FollowingTest::a_late_follower_is_told_a_state_that_was_told_before()
{
    FakeRobot robot;
    robot.latch("/state", {{"data", true}});
    Connection connection(noHurry());
    int messages = 0;
    connection.follow("/state", "std_msgs/Bool", [&](const QCborMap&) { ++messages; });
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(messages, 1, patience);
    int lateMessages = 0;
    connection.follow("/state", "std_msgs/Bool", [&](const QCborMap&) { ++lateMessages; });
    QTRY_COMPARE_WITH_TIMEOUT(lateMessages, 1, patience);
}

void FollowingTest::a_throttled_follower_asks_for_the_newest_only()
{
    FakeRobot robot;
    Connection connection(noHurry());
    connection.follow("/all", "std_msgs/Empty", [](const QCborMap&) {});
    connection.follow(
        "/newest", "std_msgs/Empty", [](const QCborMap&) {}, std::chrono::milliseconds(33));
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/newest", "std_msgs/Empty"), 1, patience);
    const QCborMap all = robot.lastSubscription("/all");
    QCOMPARE(all["throttle_rate"].toInteger(-1), qint64(0));
    const QCborMap newest = robot.lastSubscription("/newest");
    QCOMPARE(newest["throttle_rate"].toInteger(-1), qint64(33));
    QCOMPARE(newest["queue_length"].toInteger(-1), qint64(1));
}

void FollowingTest::a_follower_that_left_hears_nothing_more()
{
    FakeRobot robot;
    Connection connection(noHurry());
    int messages = 0;
    int otherMessages = 0;
    const int id =
        connection.follow("/topic", "std_msgs/Empty", [&](const QCborMap&) { ++messages; });
    connection.follow("/topic", "std_msgs/Empty", [&](const QCborMap&) { ++otherMessages; });
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty"), 2, patience);
    connection.unfollow(id);
    connection.unfollow(id);
    connection.unfollow(12345);
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty"), 1, patience);
    robot.publish("/topic", {});
    QTRY_COMPARE_WITH_TIMEOUT(otherMessages, 1, patience);
    QCOMPARE(messages, 0);
}

void FollowingTest::a_follower_that_left_is_not_there_on_the_next_link_either()
{
    FakeRobot robot;
    Connection connection(noHurry());
    const int early = connection.follow("/early", "std_msgs/Empty", [](const QCborMap&) {});
    const int later = connection.follow("/later", "std_msgs/Empty", [](const QCborMap&) {});
    connection.follow("/last", "std_msgs/Empty", [](const QCborMap&) {});
    connection.unfollow(early); // before there is any link
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/last", "std_msgs/Empty"), 1, patience);
    QVERIFY(connection.close());
    connection.unfollow(later); // between two links
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/last", "std_msgs/Empty"), 2, patience);
    QCOMPARE(robot.subscriberCount("/early", "std_msgs/Empty"), 0);
    QCOMPARE(robot.subscriberCount("/later", "std_msgs/Empty"), 1); // on the first link
}

void FollowingTest::a_follower_may_leave_while_it_hears()
{
    FakeRobot robot;
    robot.latch("/state", {});
    Connection connection(noHurry());
    int messages = 0;
    int id = 0;
    id = connection.follow("/state", "std_msgs/Empty", [&](const QCborMap&) {
        ++messages;
        connection.unfollow(id);
    });
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(messages, 1, patience);
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/state", "std_msgs/Empty"), 0, patience);
    robot.publish("/state", {});
    bool isAfter = false;
    connection.follow("/after", "std_msgs/Empty", [&](const QCborMap&) { isAfter = true; });
    robot.publish("/after", {});
    QTRY_VERIFY_WITH_TIMEOUT(isAfter, patience);
    QCOMPARE(messages, 1);
}

void FollowingTest::a_call_that_is_not_answered_fails_in_time()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.ignore("/slow");
    Timing timing = noHurry();
    timing.answer = std::chrono::seconds(1);
    Connection connection(timing);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QStringList errors;
    connection.call("/slow", {}, [&](const rosbridge::client::Client::Result& result) {
        errors << (result.ok ? QString() : result.error);
    });
    QTRY_COMPARE_WITH_TIMEOUT(errors.size(), 1, patience);
    QVERIFY2(errors[0].contains("within 1 s"), qPrintable(errors[0]));
    QCOMPARE(connection.state(), 3);
}

void FollowingTest::what_the_robot_says_about_the_link_is_in_the_base_log()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    robot.send({{"op", "status"}, {"level", "error"}, {"msg", "No such topic"}});
    QTRY_VERIFY_WITH_TIMEOUT(!journal.messages().isEmpty(), patience);
    QCOMPARE(journal.messages(), QStringList("1000 Robot, error: No such topic"));
}

void FollowingTest::a_message_that_is_not_understood_is_warned_of_and_ignored()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    bool isAfter = false;
    connection.follow("/after", "std_msgs/Empty", [&](const QCborMap&) { isAfter = true; });
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    const QRegularExpression warning("was not understood.*nonsense");
    QTest::ignoreMessage(QtWarningMsg, warning); // fails where there is none
    expectWarning(warning.pattern());
    robot.send({{"op", "nonsense"}});
    robot.publish("/after", {});
    QTRY_VERIFY_WITH_TIMEOUT(isAfter, patience);
    QCOMPARE(connection.state(), 3);
}

TEST_WITHOUT_WINDOWS(FollowingTest)

} // namespace following_test

#include "FollowingTest.moc"
