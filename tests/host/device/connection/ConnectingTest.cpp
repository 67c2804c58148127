// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Journal.h"
#include "Servers.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/connection/Connection.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

namespace connecting_test {

using host::device::connection::Connection;
using host::device::connection::Timing;

namespace {

constexpr int patience = 60000;

} // namespace

/// The way to a robot, and all that it may come to.
class ConnectingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_begins_without_a_connection();
    void a_robot_that_grants_control_is_connected();
    void a_robot_without_control_services_is_connected();
    void a_robot_that_denies_control_is_passive_for_the_reason_it_gives();
    void a_denial_without_a_reason_is_passive_too();
    void a_passive_client_does_not_ask_again_until_it_connects_again();
    void the_frames_of_connecting_come_in_turn();
    void a_robot_that_answers_at_once_still_lets_every_frame_be_seen();
    void a_second_open_is_refused_and_changes_nothing();
    void an_address_that_is_none_is_refused_at_once_data();
    void an_address_that_is_none_is_refused_at_once();
    void a_refused_connection_fails_with_its_cause();
    void a_silent_host_fails_with_its_cause();
    void an_unknown_host_fails_with_its_cause();
    void a_server_that_is_no_robot_fails_with_its_cause();
    void a_robot_that_does_not_answer_for_control_fails_with_its_cause();
    void a_robot_that_answered_in_time_stays_connected();
    void a_robot_that_is_lost_while_it_is_asked_fails_with_its_cause();
    void simulated_time_is_told_data();
    void simulated_time_is_told();
    void an_unanswered_question_about_time_does_not_keep_from_connecting();
};

void ConnectingTest::it_begins_without_a_connection()
{
    const Connection connection(noHurry());
    QCOMPARE(connection.state(), -1);
    QCOMPARE(connection.status(), QString("Not connected."));
}

void ConnectingTest::a_robot_that_grants_control_is_connected()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QCOMPARE(connection.state(), 0);
    QCOMPARE(connection.status(), QStringLiteral("Connecting to %1 …").arg(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QCOMPARE(connection.status(), QStringLiteral("Connected to %1.").arg(robot.address()));
    QCOMPARE(
        journal.lines(),
        QStringList({QStringLiteral("status Connecting to %1 …").arg(robot.address()),
                     QStringLiteral("status Connected to %1.").arg(robot.address()), "state 3"}));
    QCOMPARE(journal.messages(), QStringList());
    QCOMPARE(robot.calls().count("/control/acquire {}"), 1);
}

void ConnectingTest::a_robot_without_control_services_is_connected()
{
    FakeRobot robot;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QCOMPARE(connection.status(), QStringLiteral("Connected to %1.").arg(robot.address()));
    QCOMPARE(journal.messages(), QStringList());
}

void ConnectingTest::a_robot_that_denies_control_is_passive_for_the_reason_it_gives()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", false, "10.0.0.9 has it");
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 4, patience);
    const QString words = connection.status();
    QVERIFY2(words.contains("passive: another client is in control (10.0.0.9 has it)"),
             qPrintable(words));
    QCOMPARE(journal.messages(), QStringList("1004 " + words));
    QCOMPARE(journal.lines().last(), QString("state 4"));
}

void ConnectingTest::a_denial_without_a_reason_is_passive_too()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", false);
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 4, patience);
    QVERIFY2(!connection.status().contains("()"), qPrintable(connection.status()));
}

void ConnectingTest::a_passive_client_does_not_ask_again_until_it_connects_again()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", false, "taken");
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 4, patience);
    robot.answerTrigger("/control/acquire", true);
    QVERIFY(!connection.open(robot.address()));
    QVERIFY(connection.close());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QCOMPARE(robot.calls().count("/control/acquire {}"), 2);
}

void ConnectingTest::the_frames_of_connecting_come_in_turn()
{
    const SilentServer server;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(server.address()));
    QTRY_VERIFY_WITH_TIMEOUT(journal.states().size() >= 7, patience);
    QCOMPARE(journal.states().mid(0, 7), QList<int>({0, 1, 2, 0, 1, 2, 0}));
}

void ConnectingTest::a_robot_that_answers_at_once_still_lets_every_frame_be_seen()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    const QList<int> states = journal.states();
    QCOMPARE(states.mid(0, 3), QList<int>({0, 1, 2}));
    QCOMPARE(states.size() % 3, 1); // whole rounds, then the end
    QCOMPARE(states.count(3), 1);
}

void ConnectingTest::a_second_open_is_refused_and_changes_nothing()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    FakeRobot other;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QVERIFY(!connection.open(other.address()));
    QVERIFY(!connection.open("no address:"));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    const QStringList lines = journal.lines();
    QVERIFY(!connection.open(other.address()));
    QVERIFY(!connection.open("no address:"));
    QCOMPARE(connection.state(), 3);
    QCOMPARE(journal.lines(), lines);
    QCOMPARE(journal.messages(), QStringList());
    QVERIFY(connection.status().contains(robot.address()));
}

void ConnectingTest::an_address_that_is_none_is_refused_at_once_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("port too high") << "10.0.0.1:65536";
    QTest::newRow("no port") << "robot:";
    QTest::newRow("blank within") << "my robot";
    QTest::newRow("a page") << "http://robot/";
}

void ConnectingTest::an_address_that_is_none_is_refused_at_once()
{
    QFETCH(const QString, address);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(!connection.open(address));
    QCOMPARE(connection.state(), -1);
    verifyFailed(connection, journal, {address});
}

void ConnectingTest::a_refused_connection_fails_with_its_cause()
{
    const ClosedPort port;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(port.address()));
    verifyFailed(connection, journal, {port.address(), "refuses", "Check"});
}

void ConnectingTest::a_silent_host_fails_with_its_cause()
{
    const SilentServer server;
    Timing timing = noHurry();
    timing.link.connect = std::chrono::milliseconds(200);
    Connection connection(timing);
    const Journal journal(connection);
    QVERIFY(connection.open(server.address()));
    verifyFailed(connection, journal, {server.address(), "has not answered", "Check"});
}

void ConnectingTest::an_unknown_host_fails_with_its_cause()
{
    Timing timing = noHurry();
    timing.link.connect = std::chrono::seconds(1); // where there is nobody to ask for names
    Connection connection(timing);
    const Journal journal(connection);
    QVERIFY(connection.open("no-such-robot.invalid"));
    verifyFailed(connection, journal, {"no-such-robot.invalid", "Check"});
}

void ConnectingTest::a_server_that_is_no_robot_fails_with_its_cause()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* const socket = server.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket, [socket] {
            socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
            socket->disconnectFromHost();
        });
    });
    const QString address = QStringLiteral("127.0.0.1:%1").arg(server.serverPort());
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(address));
    verifyFailed(connection, journal, {address, "no robot at this path", "Check the port"});
}

void ConnectingTest::a_robot_that_does_not_answer_for_control_fails_with_its_cause()
{
    FakeRobot robot;
    robot.ignore("/control/acquire");
    Timing timing = noHurry();
    timing.answer = std::chrono::milliseconds(200);
    Connection connection(timing);
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    verifyFailed(connection, journal, {robot.address(), "request for control for 0.2 s"});
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
}

void ConnectingTest::a_robot_that_answered_in_time_stays_connected()
{
    FakeRobot robot;
    FakeRobot slowRobot;
    slowRobot.ignore("/control/acquire");
    Timing timing = noHurry();
    timing.answer = std::chrono::seconds(1);
    Connection connection(timing);
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    Connection witness(timing); // its deadline is later
    QVERIFY(witness.open(slowRobot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(witness.state(), -1, patience);
    QCOMPARE(connection.state(), 3);
    QCOMPARE(journal.messages(), QStringList());
}

void ConnectingTest::a_robot_that_is_lost_while_it_is_asked_fails_with_its_cause()
{
    FakeRobot robot;
    robot.ignore("/control/acquire");
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/control/acquire {}"), patience);
    robot.drop();
    verifyFailed(connection, journal, {robot.address(), "lost"});
}

void ConnectingTest::simulated_time_is_told_data()
{
    QTest::addColumn<bool>("isKnown");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isSimulator");
    QTest::newRow("true") << true << "true" << true;
    QTest::newRow("false") << true << "false" << false;
    QTest::newRow("null") << true << "null" << false;
    QTest::newRow("nothing") << true << "" << false;
    QTest::newRow("a text that only says so") << true << "\"true\"" << false;
    QTest::newRow("a robot without parameters") << false << "" << false;
}

void ConnectingTest::simulated_time_is_told()
{
    QFETCH(const bool, isKnown);
    QFETCH(const QString, value);
    QFETCH(const bool, isSimulator);
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    if (isKnown)
        robot.answer("/rosapi/get_param", {{"value", value}});
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience); // asked for before control
    QVERIFY(
        robot.calls().contains(R"(/rosapi/get_param {"default":"false","name":"/use_sim_time"})"));
    QCOMPARE(journal.lines().contains("simulator 1"), isSimulator);
    QVERIFY(!journal.lines().contains("simulator 0"));
}

void ConnectingTest::an_unanswered_question_about_time_does_not_keep_from_connecting()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.ignore("/rosapi/get_param");
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
}

TEST_WITHOUT_WINDOWS(ConnectingTest)

} // namespace connecting_test

#include "ConnectingTest.moc"
