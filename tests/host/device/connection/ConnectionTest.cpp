#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/connection/Connection.h"
#include "host/device/faults/Faults.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <memory>

namespace connection_test {

using host::device::connection::Timing;

namespace {

constexpr int patience = 60000;

struct NoFaults
{
    host::device::faults::Faults faults;
};

/// A connection to which nothing is done.
class Connection : private NoFaults, public host::device::connection::Connection
{
public:
    explicit Connection(const Timing& timing) : host::device::connection::Connection(timing, faults)
    {
    }
};

/// Keeps what a connection says: "state 3", "status …", "1004 …", "simulator 1".
class Journal : public QObject
{
public:
    explicit Journal(const Connection& connection)
    {
        connect(&connection, &Connection::stateChanged, this, [this](int state) {
            m_states.append(state);
            if (state < 0 || state >= Connection::connected) // frames are a matter of time
                m_lines.append(QStringLiteral("state %1").arg(state));
        });
        connect(&connection, &Connection::statusChanged, this, [this](const QString& words) {
            m_lines.append(QStringLiteral("status ") + words);
        });
        connect(&connection, &Connection::message, this,
                [this](plugin::plugin::DataRole role, const QString& text) {
                    m_messages.append(QStringLiteral("%1 ").arg(role) + text);
                });
        connect(&connection, &Connection::simulatorChanged, this, [this](bool isSimulator) {
            m_lines.append(QStringLiteral("simulator %1").arg(isSimulator));
        });
    }

    QList<int> states() const { return m_states; }

    QStringList lines() const { return m_lines; }

    QStringList messages() const { return m_messages; }

private:
    QList<int> m_states;
    QStringList m_lines;
    QStringList m_messages;
};

/// A port that nobody else gets, and where nobody listens.
class ClosedPort
{
public:
    ClosedPort() { m_socket.bind(QHostAddress::LocalHost); }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_socket.localPort()); }

private:
    QTcpSocket m_socket;
};

/// The network accepts for it, but it never says a word.
class SilentServer
{
public:
    SilentServer() { m_server.listen(QHostAddress::LocalHost); }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }

    bool hasVisitor() const { return m_server.hasPendingConnections(); }

private:
    QTcpServer m_server;
};

} // namespace

/// The way to a robot and back, with all its ends.
class ConnectionTest : public TestCase
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
    void a_robot_that_is_lost_fails_with_its_cause_data();
    void a_robot_that_is_lost_fails_with_its_cause();
    void closing_gives_control_back();
    void closing_without_control_gives_none_back_data();
    void closing_without_control_gives_none_back();
    void connecting_is_given_up_quietly_data();
    void connecting_is_given_up_quietly();
    void closing_what_is_closed_is_refused();
    void it_connects_again_after_every_end();
    void simulated_time_is_told_data();
    void simulated_time_is_told();
    void an_unanswered_question_about_time_does_not_keep_from_connecting();
    void the_simulator_is_forgotten_with_the_connection();
    void log_lines_go_to_the_log_of_their_part_data();
    void log_lines_go_to_the_log_of_their_part();
    void log_lines_are_heard_by_a_passive_client_too();
    void control_that_was_lost_with_the_link_is_not_given_back();
    void a_robot_that_does_not_take_control_back_is_left_and_not_heard();
    void a_connection_that_is_over_is_not_heard();
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
    void it_is_deleted_in_any_state();

private:
    /// -1, with words in which all of @p parts stand, said as the status and as a message.
    static void verifyFailed(const Connection& connection, const Journal& journal,
                             const QStringList& parts);
};

void ConnectionTest::verifyFailed(const Connection& connection, const Journal& journal,
                                  const QStringList& parts)
{
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), Connection::notConnected, patience);
    const QString words = connection.status();
    for (const QString& part : parts)
        QVERIFY2(words.contains(part), qPrintable(words));
    QCOMPARE(journal.messages(), QStringList("1004 " + words));
    QCOMPARE(journal.lines().mid(journal.lines().size() - 2),
             QStringList({"status " + words, "state -1"}));
}

void ConnectionTest::it_begins_without_a_connection()
{
    const Connection connection(noHurry());
    QCOMPARE(connection.state(), -1);
    QCOMPARE(connection.status(), QString("Not connected."));
}

void ConnectionTest::a_robot_that_grants_control_is_connected()
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

void ConnectionTest::a_robot_without_control_services_is_connected()
{
    FakeRobot robot;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QCOMPARE(connection.status(), QStringLiteral("Connected to %1.").arg(robot.address()));
    QCOMPARE(journal.messages(), QStringList());
}

void ConnectionTest::a_robot_that_denies_control_is_passive_for_the_reason_it_gives()
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

void ConnectionTest::a_denial_without_a_reason_is_passive_too()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", false);
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 4, patience);
    QVERIFY2(!connection.status().contains("()"), qPrintable(connection.status()));
}

void ConnectionTest::a_passive_client_does_not_ask_again_until_it_connects_again()
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

void ConnectionTest::the_frames_of_connecting_come_in_turn()
{
    const SilentServer server;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(server.address()));
    QTRY_VERIFY_WITH_TIMEOUT(journal.states().size() >= 7, patience);
    QCOMPARE(journal.states().mid(0, 7), QList<int>({0, 1, 2, 0, 1, 2, 0}));
}

void ConnectionTest::a_robot_that_answers_at_once_still_lets_every_frame_be_seen()
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

void ConnectionTest::a_second_open_is_refused_and_changes_nothing()
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

void ConnectionTest::an_address_that_is_none_is_refused_at_once_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("port too high") << "10.0.0.1:65536";
    QTest::newRow("no port") << "robot:";
    QTest::newRow("blank within") << "my robot";
    QTest::newRow("an URL") << "ws://robot/";
}

void ConnectionTest::an_address_that_is_none_is_refused_at_once()
{
    QFETCH(const QString, address);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(!connection.open(address));
    QCOMPARE(connection.state(), -1);
    verifyFailed(connection, journal, {address});
}

void ConnectionTest::a_refused_connection_fails_with_its_cause()
{
    const ClosedPort port;
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(port.address()));
    verifyFailed(connection, journal, {port.address(), "refuses", "Check"});
}

void ConnectionTest::a_silent_host_fails_with_its_cause()
{
    const SilentServer server;
    Timing timing = noHurry();
    timing.link.connect = std::chrono::milliseconds(200);
    Connection connection(timing);
    const Journal journal(connection);
    QVERIFY(connection.open(server.address()));
    verifyFailed(connection, journal, {server.address(), "has not answered", "Check"});
}

void ConnectionTest::an_unknown_host_fails_with_its_cause()
{
    Timing timing = noHurry();
    timing.link.connect = std::chrono::seconds(1); // where there is nobody to ask for names
    Connection connection(timing);
    const Journal journal(connection);
    QVERIFY(connection.open("no-such-robot.invalid"));
    verifyFailed(connection, journal, {"no-such-robot.invalid", "Check"});
}

void ConnectionTest::a_server_that_is_no_robot_fails_with_its_cause()
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
    verifyFailed(connection, journal, {address, "not as a robot"});
}

void ConnectionTest::a_robot_that_does_not_answer_for_control_fails_with_its_cause()
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

void ConnectionTest::a_robot_that_answered_in_time_stays_connected()
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

void ConnectionTest::a_robot_that_is_lost_while_it_is_asked_fails_with_its_cause()
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

void ConnectionTest::a_robot_that_is_lost_fails_with_its_cause_data()
{
    QTest::addColumn<bool>("isGranted");
    QTest::addColumn<int>("state");
    QTest::newRow("in control") << true << 3;
    QTest::newRow("passive") << false << 4;
}

void ConnectionTest::a_robot_that_is_lost_fails_with_its_cause()
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

void ConnectionTest::closing_gives_control_back()
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

void ConnectionTest::closing_without_control_gives_none_back_data()
{
    QTest::addColumn<bool>("hasControlServices");
    QTest::addColumn<int>("state");
    QTest::newRow("robot without control services") << false << 3;
    QTest::newRow("passive") << true << 4;
}

void ConnectionTest::closing_without_control_gives_none_back()
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

void ConnectionTest::control_that_was_lost_with_the_link_is_not_given_back()
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

void ConnectionTest::connecting_is_given_up_quietly_data()
{
    QTest::addColumn<QString>("phase");
    for (const char* phase : {"at once", "handshake", "asked for control", "asked for long"})
        QTest::newRow(phase) << QString(phase);
}

void ConnectionTest::connecting_is_given_up_quietly()
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

void ConnectionTest::closing_what_is_closed_is_refused()
{
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(!connection.close());
    QVERIFY(journal.lines().isEmpty());
    QVERIFY(journal.messages().isEmpty());
}

void ConnectionTest::it_connects_again_after_every_end()
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

void ConnectionTest::simulated_time_is_told_data()
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

void ConnectionTest::simulated_time_is_told()
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

void ConnectionTest::an_unanswered_question_about_time_does_not_keep_from_connecting()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    robot.ignore("/rosapi/get_param");
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
}

void ConnectionTest::the_simulator_is_forgotten_with_the_connection()
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

void ConnectionTest::log_lines_go_to_the_log_of_their_part_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("base") << "base"
                          << "1000 Ready";
    QTest::newRow("manipulator") << "manipulator"
                                 << "1001 Ready";
    QTest::newRow("laser") << "laser"
                           << "1002 Ready";
    QTest::newRow("as a node's full name") << "/laser"
                                           << "1002 Ready";
    QTest::newRow("another node") << "/rosbridge"
                                  << "1000 rosbridge: Ready";
}

void ConnectionTest::log_lines_go_to_the_log_of_their_part()
{
    QFETCH(const QString, name);
    QFETCH(const QString, expected);
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QCOMPARE(robot.subscriberCount("/rosout", "rosgraph_msgs/Log", "cbor"), 1);
    robot.log(name, "Ready");
    QTRY_VERIFY_WITH_TIMEOUT(!journal.messages().isEmpty(), patience);
    QCOMPARE(journal.messages(), QStringList(expected));
}

void ConnectionTest::log_lines_are_heard_by_a_passive_client_too()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", false, "taken");
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 4, patience);
    robot.log("base", "Ready");
    QTRY_VERIFY_WITH_TIMEOUT(journal.messages().contains("1000 Ready"), patience);
}

void ConnectionTest::a_robot_that_does_not_take_control_back_is_left_and_not_heard()
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
    const Journal journal(connection);
    QVERIFY(connection.close());
    QCOMPARE(robot.clientCount(), 1); // it waits for the robot to take control back
    robot.log("base", "Ready");
    robot.send({{"op", "status"}, {"level", "error"}, {"msg", "Nonsense"}});
    robot.send({{"op", "nonsense"}});
    QTRY_COMPARE_WITH_TIMEOUT(robot.clientCount(), 0, patience);
    QVERIFY(robot.calls().contains("/control/release {}"));
    QCOMPARE(journal.messages(), QStringList());
    QCOMPARE(journal.lines(), QStringList({"status Not connected.", "state -1"}));
}

void ConnectionTest::a_connection_that_is_over_is_not_heard()
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
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty", "cbor"), 1,
                              patience);
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

void ConnectionTest::a_topic_that_is_followed_late_is_heard_on_the_open_link()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    int messages = 0;
    connection.follow("/topic", "std_msgs/Empty", [&](const QCborMap&) { ++messages; });
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty", "cbor"), 1,
                              patience);
    robot.publish("/topic", {});
    QTRY_COMPARE_WITH_TIMEOUT(messages, 1, patience);
}

void ConnectionTest::all_followers_of_a_topic_hear_each_message()
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
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Int32", "cbor"), 2,
                              patience);
    robot.publish("/topic", {{"data", 1}});
    robot.publish("/topic", {{"data", 2}});
    QTRY_COMPARE_WITH_TIMEOUT(heard.size(), 4, patience);
    heard.sort(); // those of one message come in any order
    QCOMPARE(heard, QStringList({"1", "2", "late 1", "late 2"}));
}

void ConnectionTest::a_late_follower_is_told_a_state_that_was_told_before()
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

void ConnectionTest::a_throttled_follower_asks_for_the_newest_only()
{
    FakeRobot robot;
    Connection connection(noHurry());
    connection.follow("/all", "std_msgs/Empty", [](const QCborMap&) {});
    connection.follow(
        "/newest", "std_msgs/Empty", [](const QCborMap&) {}, std::chrono::milliseconds(33));
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/newest", "std_msgs/Empty", "cbor"), 1,
                              patience);
    const QCborMap all = robot.lastSubscription("/all");
    QCOMPARE(all["throttle_rate"].toInteger(-1), qint64(0));
    const QCborMap newest = robot.lastSubscription("/newest");
    QCOMPARE(newest["throttle_rate"].toInteger(-1), qint64(33));
    QCOMPARE(newest["queue_length"].toInteger(-1), qint64(1));
}

void ConnectionTest::a_follower_that_left_hears_nothing_more()
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
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty", "cbor"), 2,
                              patience);
    connection.unfollow(id);
    connection.unfollow(id);
    connection.unfollow(12345);
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/topic", "std_msgs/Empty", "cbor"), 1,
                              patience);
    robot.publish("/topic", {});
    QTRY_COMPARE_WITH_TIMEOUT(otherMessages, 1, patience);
    QCOMPARE(messages, 0);
}

void ConnectionTest::a_follower_that_left_is_not_there_on_the_next_link_either()
{
    FakeRobot robot;
    Connection connection(noHurry());
    const int early = connection.follow("/early", "std_msgs/Empty", [](const QCborMap&) {});
    const int later = connection.follow("/later", "std_msgs/Empty", [](const QCborMap&) {});
    connection.follow("/last", "std_msgs/Empty", [](const QCborMap&) {});
    connection.unfollow(early); // before there is any link
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/last", "std_msgs/Empty", "cbor"), 1,
                              patience);
    QVERIFY(connection.close());
    connection.unfollow(later); // between two links
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/last", "std_msgs/Empty", "cbor"), 2,
                              patience);
    QCOMPARE(robot.subscriberCount("/early", "std_msgs/Empty", "cbor"), 0);
    QCOMPARE(robot.subscriberCount("/later", "std_msgs/Empty", "cbor"), 1); // on the first link
}

void ConnectionTest::a_follower_may_leave_while_it_hears()
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
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/state", "std_msgs/Empty", "cbor"), 0,
                              patience);
    robot.publish("/state", {});
    robot.log("base", "after it");
    qRegisterMetaType<plugin::plugin::DataRole>("plugin::plugin::DataRole"); // for the spy
    const QSignalSpy log(&connection, &Connection::message);
    QTRY_VERIFY_WITH_TIMEOUT(!log.isEmpty(), patience);
    QCOMPARE(messages, 1);
}

void ConnectionTest::a_call_that_is_not_answered_fails_in_time()
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

void ConnectionTest::what_the_robot_says_about_the_link_is_in_the_base_log()
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

void ConnectionTest::a_message_that_is_not_understood_is_warned_of_and_ignored()
{
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", true);
    Connection connection(noHurry());
    const Journal journal(connection);
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    const QRegularExpression warning("was not understood.*nonsense");
    QTest::ignoreMessage(QtWarningMsg, warning); // fails where there is none
    expectWarning(warning.pattern());
    robot.send({{"op", "nonsense"}});
    robot.log("base", "Ready");
    QTRY_VERIFY_WITH_TIMEOUT(!journal.messages().isEmpty(), patience);
    QCOMPARE(connection.state(), 3);
}

void ConnectionTest::it_is_deleted_in_any_state()
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

TEST_WITHOUT_WINDOWS(ConnectionTest)

} // namespace connection_test

#include "ConnectionTest.moc"
