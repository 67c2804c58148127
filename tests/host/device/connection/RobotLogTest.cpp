// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/RobotLog.h"

#include <QtTest>

namespace robot_log_test {

using namespace host::device::connection;

namespace {

constexpr int patience = 60000;

/// A robot, and what its log makes.
struct Fixture
{
    explicit Fixture(bool isGranted = true)
    {
        robot.answerTrigger("/control/acquire", isGranted, "taken");
        const auto keep = [this](plugin::plugin::DataRole role, const QString& text) {
            lines << QStringLiteral("%1 ").arg(role) + text;
        };
        QObject::connect(&log, &RobotLog::message, &log, keep);
        QObject::connect(&listener, &Listener::message, &log, keep);
        connection.open(robot.address());
        const int state = isGranted ? Connection::connected : Connection::passive;
        QTRY_COMPARE_WITH_TIMEOUT(connection.state(), state, patience);
    }

    bool hears(const QString& line) const
    {
        return QTest::qWaitFor([&] { return lines.contains(line); }, patience);
    }

    FakeRobot robot;
    Connection connection{noHurry()};
    Listener listener{connection};
    RobotLog log{listener};
    QStringList lines;
};

} // namespace

/// The robot's log, on its way into the logs of its parts.
class RobotLogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lines_go_to_the_log_of_their_part_data();
    void lines_go_to_the_log_of_their_part();
    void lines_are_heard_by_a_passive_client_too();
    void lines_do_not_count_as_data_that_came();
    void what_is_no_line_is_said_once_and_makes_none();
    void of_other_nodes_warnings_are_shown_and_the_rest_on_demand_data();
    void of_other_nodes_warnings_are_shown_and_the_rest_on_demand();
};

void RobotLogTest::lines_go_to_the_log_of_their_part_data()
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
}

void RobotLogTest::lines_go_to_the_log_of_their_part()
{
    QFETCH(const QString, name);
    QFETCH(const QString, expected);
    Fixture f;
    QCOMPARE(f.robot.subscriberCount("/rosout", QString()), 1);
    f.robot.log(name, "Ready");
    QTRY_VERIFY_WITH_TIMEOUT(!f.lines.isEmpty(), patience);
    QCOMPARE(f.lines, QStringList(expected));
}

void RobotLogTest::lines_are_heard_by_a_passive_client_too()
{
    Fixture f(false);
    f.robot.log("base", "Ready");
    QVERIFY(f.hears("1000 Ready"));
}

void RobotLogTest::lines_do_not_count_as_data_that_came()
{
    Fixture f;
    f.connection.follow("/data", "std_msgs/Empty", [](const QCborMap&) {});
    f.robot.log("base", "Ready");
    QVERIFY(f.hears("1000 Ready"));
    QVERIFY(!f.connection.dataAge());
    f.robot.publish("/data", {});
    QTRY_VERIFY_WITH_TIMEOUT(f.connection.dataAge().has_value(), patience);
}

void RobotLogTest::what_is_no_line_is_said_once_and_makes_none()
{
    Fixture f;
    for (int time = 0; time < 2; ++time)
        f.robot.publish("/rosout", {{"name", "base"}, {"msg", 7}});
    f.robot.log("base", "Ready");
    QVERIFY(f.hears("1000 Ready"));
    QCOMPARE(f.lines, QStringList({"1000 A message on the topic /rosout was ignored: the field "
                                   "\"msg\" is a number, not text.",
                                   "1000 Ready"}));
}

void RobotLogTest::of_other_nodes_warnings_are_shown_and_the_rest_on_demand_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("ROS 1, debug") << 1.0 << false;
    QTest::newRow("ROS 1, information") << 2.0 << false;
    QTest::newRow("ROS 1, warning") << 4.0 << true;
    QTest::newRow("ROS 1, error") << 8.0 << true;
    QTest::newRow("ROS 1, fatal") << 16.0 << true;
    QTest::newRow("ROS 2, debug") << 10.0 << false;
    QTest::newRow("ROS 2, information") << 20.0 << false;
    QTest::newRow("ROS 2, warning") << 30.0 << true;
    QTest::newRow("ROS 2, error") << 40.0 << true;
    QTest::newRow("ROS 2, fatal") << 50.0 << true;
    QTest::newRow("unknown") << 7.0 << true;
    QTest::newRow("beyond any level") << 1e300 << true;
}

void RobotLogTest::of_other_nodes_warnings_are_shown_and_the_rest_on_demand()
{
    QFETCH(const double, level);
    QFETCH(const bool, isShown);
    Fixture f;
    // As ROS 2 has it, where ROS 1 has a header.
    QCborMap line{{"stamp", QCborMap{{"sec", 1}, {"nanosec", 2}}},
                  {"level", level},
                  {"name", "amcl"},
                  {"msg", "first"},
                  {"file", ""},
                  {"function", ""},
                  {"line", 0}};
    f.robot.publish("/rosout", line);
    f.robot.log("base", "Ready");
    QVERIFY(f.hears("1000 Ready"));
    QCOMPARE(f.lines.contains("1000 amcl: first"), isShown);
    f.log.showAllOfOthers(true);
    line.insert(QLatin1String("msg"), QStringLiteral("second"));
    f.robot.publish("/rosout", line);
    QVERIFY(f.hears("1000 amcl: second"));
}

TEST_WITHOUT_WINDOWS(RobotLogTest)

} // namespace robot_log_test

#include "RobotLogTest.moc"
