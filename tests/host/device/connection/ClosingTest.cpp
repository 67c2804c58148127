// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Journal.h"
#include "Servers.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/connection/Connection.h"

#include <QtTest>

namespace closing_test {

using host::device::connection::Connection;
using host::device::connection::Timing;

namespace {

constexpr int patience = 60000;

} // namespace

/// The way back from a robot, asked for or not.
class ClosingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_robot_that_is_lost_fails_with_its_cause_data();
    void a_robot_that_is_lost_fails_with_its_cause();
    void closing_gives_control_back();
    void closing_without_control_gives_none_back_data();
    void closing_without_control_gives_none_back();
    void control_that_was_lost_with_the_link_is_not_given_back();
    void connecting_is_given_up_quietly_data();
    void connecting_is_given_up_quietly();
    void closing_what_is_closed_is_refused();
    void it_connects_again_after_every_end();
    void the_simulator_is_forgotten_with_the_connection();
    void a_robot_that_does_not_take_control_back_is_left_and_not_heard();
    void a_connection_that_is_over_is_not_heard();
    void it_is_deleted_in_any_state();
};

void ClosingTest::a_robot_that_is_lost_fails_with_its_cause_data()
{
    QTest::addColumn<bool>("isGranted");
    QTest::addColumn<int>("state");
    QTest::newRow("in control") << true << 3;
    QTest::newRow("passive") << false << 4;
}

void ClosingTest::a_robot_that_is_lost_fails_with_its_cause()
{
    QFETCH(const bool, isGranted);
    QFETCH(const int, state);
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", isGranted, "taken");
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), state, patience);
    const Journal journal(connection);
    robot.drop();
    verifyFailed(connection, journal, {robot.address(), "lost", "Check"});
}

void ClosingTest::closing_gives_control_back()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.answerTrigger("/control/release", true);
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    const Journal journal(connection);
    QVERIFY(connection.close());
    QCOMPARE(connection.state(), -1);
    QCOMPARE(connection.status(), QString("Not connected."));
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QCOMPARE(robot.calls().last(), QString("/control/release {}"));
    QCOMPARE(journal.lines(), QStringList({"status Not connected.", "state -1"}));
    QCOMPARE(journal.messages(), QStringList());
}

void ClosingTest::closing_without_control_gives_none_back_data()
{
    QTest::addColumn<bool>("hasControlServices");
    QTest::addColumn<int>("state");
    QTest::newRow("robot without control services") << false << 3;
    QTest::newRow("passive") << true << 4;
}

void ClosingTest::closing_without_control_gives_none_back()
{
    QFETCH(const bool, hasControlServices);
    QFETCH(const int, state);
    FakeRobot robot;
    if (hasControlServices)
        robot.answerTrigger("/control/acquire", false, "taken");
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), state, patience);
    QVERIFY(connection.close());
    QCOMPARE(connection.state(), -1);
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QVERIFY(!robot.calls().contains("/control/release {}"));
}

void ClosingTest::control_that_was_lost_with_the_link_is_not_given_back()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    robot.drop();
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), -1, patience);
    robot.ignore("/control/acquire");
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.calls().count("/control/acquire {}"), 2, patience);
    QVERIFY(connection.close());
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QVERIFY(!robot.calls().contains("/control/release {}"));
}

void ClosingTest::connecting_is_given_up_quietly_data()
{
    QTest::addColumn<QString>("phase");
    for (const char* phase : {"at once", "handshake", "asked for control", "asked for long"})
        QTest::newRow(phase) << QString(phase);
}

void ClosingTest::connecting_is_given_up_quietly()
{
    QFETCH(const QString, phase);
    const SilentServer silent;
    FakeRobot robot;
    robot.ignore("/control/acquire");
    Connection connection(noHurry());
    const Journal journal(connection);
    if (phase == "handshake") {
        QVERIFY(connection.open(silent.address()));
        QTRY_VERIFY_WITH_TIMEOUT(silent.hasVisitor(), patience);
    } else {
        QVERIFY(connection.open(robot.address()));
    }
    if (phase == "asked for control")
        QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/control/acquire {}"), patience);
    if (phase == "asked for long") { // only the answer is missing
        QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/control/acquire {}"), patience);
        QTRY_VERIFY_WITH_TIMEOUT(journal.states().size() > 3, patience);
    }
    QVERIFY(connection.close());
    QCOMPARE(connection.state(), -1);
    QCOMPARE(connection.status(), QString("Not connected."));

    // Nothing of it is left to disturb the next one.
    FakeRobot next;
    next.answerTrigger("/control/acquire", true);
    QVERIFY(connection.open(next.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QCOMPARE(journal.messages(), QStringList());
    QCOMPARE(journal.lines().filter("state"), QStringList({"state -1", "state 3"}));
}

void ClosingTest::closing_what_is_closed_is_refused()
{
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(!connection.close());
    QVERIFY(journal.lines().isEmpty());
    QVERIFY(journal.messages().isEmpty());
}

void ClosingTest::it_connects_again_after_every_end()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.answerTrigger("/control/release", true);
    const ClosedPort port;
    Connection connection(noHurry());
    for (const QString end : {"lost", "closed", "refused", "no address"}) {
        if (end == "refused") {
            QVERIFY(connection.open(port.address()));
            QTRY_COMPARE_WITH_TIMEOUT(connection.state(), -1, patience);
        } else if (end == "no address") {
            QVERIFY(!connection.open("no address:"));
        }
        QVERIFY(connection.open(robot.address()));
        QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
        if (end == "lost") {
            robot.drop();
            QTRY_COMPARE_WITH_TIMEOUT(connection.state(), -1, patience);
        } else {
            QVERIFY(connection.close());
        }
    }
    QCOMPARE(robot.calls().count("/control/acquire {}"), 4);
}

void ClosingTest::the_simulator_is_forgotten_with_the_connection()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.answer("/rosapi/get_param", {{"value", "true"}});
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QVERIFY(journal.lines().contains("simulator 1"));
    robot.drop();
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), -1, patience);
    QVERIFY(journal.lines().contains("simulator 0"));
}

void ClosingTest::a_robot_that_does_not_take_control_back_is_left_and_not_heard()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.ignore("/control/release");
    robot.ignore("/rosapi/get_param");
    Timing timing = noHurry();
    timing.answer = std::chrono::seconds(2);
    Connection connection(timing);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    bool isHeard = false;
    connection.follow("/rosout", "rosgraph_msgs/Log", [&](const QCborMap&) { isHeard = true; });
    const Journal journal(connection);
    QVERIFY(connection.close());
    QCOMPARE(robot.clientCount(), 1); // it waits for the robot to take control back
    robot.log("base", "Ready");
    robot.send({{"op", "status"}, {"level", "error"}, {"msg", "Nonsense"}});
    robot.send({{"op", "nonsense"}});
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QVERIFY(robot.calls().contains("/control/release {}"));
    QVERIFY(!isHeard);
    QCOMPARE(journal.messages(), QStringList());
    QCOMPARE(journal.lines(), QStringList({"status Not connected.", "state -1"}));
}

void ClosingTest::a_connection_that_is_over_is_not_heard()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    for (const char* service : {"/control/release", "/rosapi/get_param", "/slow"})
        robot.ignore(service);
    Connection connection(noHurry());
    QStringList heard;
    connection.follow("/topic", "std_msgs/Empty", [&](const QCborMap&) { heard << "topic"; });
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    connection.call("/slow", {},
                    [&](const rosbridge::client::Client::Result&) { heard << "slow"; });
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty"), 1, patience);
    QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/slow {}"), patience);
    QVERIFY(connection.close());
    QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/control/release {}"), patience);
    const Journal journal(connection);
    robot.publish("/topic", {});
    robot.answerLate("/slow", {});
    robot.answerLate("/rosapi/get_param", {{"value", "true"}});
    robot.answerLate("/control/release", {{"success", true}}); // ends the link
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QCOMPARE(heard, QStringList());
    QCOMPARE(journal.lines(), QStringList());
}

void ClosingTest::it_is_deleted_in_any_state()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.ignore("/control/release");
    const auto deleteIn = [&](int state) {
        auto connection = std::make_unique<Connection>(noHurry());
        connection->open(robot.address());
        QTRY_COMPARE_WITH_TIMEOUT(connection->state(), state, patience);
        const Journal journal(*connection);
        connection.reset();
        QVERIFY(journal.lines().isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    };
    deleteIn(0);
    deleteIn(3);

    auto connection = std::make_unique<Connection>(noHurry());
    QVERIFY(connection->open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection->state(), 3, patience);
    QVERIFY(connection->close());
    QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/control/release {}"), patience);
    connection.reset(); // while it waits for the robot to take control back
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
}

TEST_WITHOUT_WINDOWS(ClosingTest)

} // namespace closing_test

#include "ClosingTest.moc"
