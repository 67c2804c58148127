// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Relay.h"
#include "TestCase.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/connection/Connection.h"
#include "robot/Robot.h"

#include <QtTest>

namespace slow_line_test {

using host::device::connection::Connection;
using host::device::connection::Remappings;
using host::device::connection::Timing;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 60000;

} // namespace

/// A robot that tells more than the line to it carries.
class SlowLineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_link_stays_as_long_as_data_comes_and_its_delay_is_told();
};

void SlowLineTest::the_link_stays_as_long_as_data_comes_and_its_delay_is_told()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({"127.0.0.1", 0}, &error), qPrintable(error));
    Relay relay(robot.port(), 40000);
    Timing timing = noHurry();
    // An answer to a ping takes longer than this, once what the system holds on the way is full.
    timing.link = {60s, 100ms, 500ms};
    Connection connection(timing);
    int messages = 0;
    for (const Remappings::Entry& entry : Remappings::all())
        if (entry.kind == Remappings::Kind::Topic)
            connection.follow(entry.name, entry.type, [&](const QCborMap&) { ++messages; });
    QVERIFY(connection.open(relay.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    const auto delay = [&] { return connection.followers().delay().value_or(0ms); };
    QTRY_VERIFY_WITH_TIMEOUT(delay() > 1500ms || connection.state() != 3, patience);
    QCOMPARE(connection.state(), 3);

    const int before = messages;
    relay.open();
    QTRY_VERIFY_WITH_TIMEOUT(messages > before && delay() < 500ms, patience);
    QCOMPARE(connection.state(), 3);
}

TEST_WITHOUT_WINDOWS(SlowLineTest)

} // namespace slow_line_test

#include "SlowLineTest.moc"
