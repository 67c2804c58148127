// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Reconnection.h"

#include <QElapsedTimer>
#include <QtTest>

#include <memory>

namespace reconnection_test {

using namespace host::device::connection;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 60000;

Timing timing(std::chrono::milliseconds lasting)
{
    Timing timing;
    timing.frame = 5ms;
    timing.firstPause = 20ms;
    timing.longestPause = 80ms;
    timing.lasting = lasting;
    return timing;
}

struct Fixture
{
    /// A link that is up for @p lasting counts as one that lasts.
    explicit Fixture(std::chrono::milliseconds lasting = 0ms)
        : connection(timing(lasting)),
          reconnection(connection, timing(lasting))
    {
        robot->obey();
        QObject::connect(&connection, &Connection::stateChanged, [this](int state) {
            if (last == Connection::notConnected && state == 0) { // later the animation goes round
                ++attempts;
                if (clock.isValid())
                    pauses << clock.elapsed();
            }
            last = state;
            if (state == Connection::notConnected)
                clock.start();
        });
        reconnection.setAutomatic(true);
    }

    bool reaches(int state) const
    {
        return QTest::qWaitFor([&] { return connection.state() == state; }, patience);
    }

    bool open() { return connection.open(address) && reaches(Connection::connected); }

    void takeRobotAway() { robot.reset(); }

    void bringRobotBack()
    {
        robot = std::make_unique<FakeRobot>(address.section(':', 1).toUShort());
        robot->obey();
    }

    std::unique_ptr<FakeRobot> robot = std::make_unique<FakeRobot>();
    const QString address = robot->address();
    Connection connection;
    Reconnection reconnection;
    int last = Connection::notConnected;
    int attempts = 0;
    QElapsedTimer clock;  // since the end of the last connection or attempt
    QList<qint64> pauses; // before each further attempt
};

} // namespace

/// Reconnection: what becomes of a lost link.
class ReconnectionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_lost_link_is_joined_again();
    void a_robot_that_is_away_is_tried_at_growing_intervals_until_it_is_back();
    void a_robot_that_drops_every_link_at_once_is_tried_at_growing_intervals();
    void a_connection_that_never_was_is_not_tried_again();
    void what_a_person_closes_stays_closed();
    void giving_up_ends_the_attempts();
    void giving_up_ends_an_attempt_under_way();
    void connecting_by_hand_takes_over();
    void switched_off_it_only_knows_of_the_loss();
};

void ReconnectionTest::a_lost_link_is_joined_again()
{
    Fixture f;
    QVERIFY(f.open());
    QVERIFY(!f.reconnection.isLost());
    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    QVERIFY(f.reconnection.isLost());
    QVERIFY(f.reconnection.isTrying());
    QVERIFY(f.reconnection.untilNextAttempt().value_or(1h) <= 20ms);
    QVERIFY(f.reaches(Connection::connected));
    QCOMPARE(f.attempts, 2);
    QVERIFY(!f.reconnection.isLost());
    QVERIFY(!f.reconnection.isTrying());
    QVERIFY(!f.reconnection.untilNextAttempt());
}

void ReconnectionTest::a_robot_that_is_away_is_tried_at_growing_intervals_until_it_is_back()
{
    Fixture f;
    QVERIFY(f.open());
    f.takeRobotAway();
    QTRY_VERIFY_WITH_TIMEOUT(f.attempts >= 6, patience);
    QVERIFY(f.reconnection.isLost());
    const QList<int> least = {20, 40, 80, 80, 80};
    for (int i = 0; i < least.size(); ++i)
        QVERIFY2(f.pauses.at(i) >= least.at(i) - 2, qPrintable(QString::number(f.pauses.at(i))));
    f.bringRobotBack();
    QVERIFY(f.reaches(Connection::connected));
    QVERIFY(!f.reconnection.isTrying());

    f.robot->drop(); // the pauses start anew
    QVERIFY(f.reaches(Connection::notConnected));
    QVERIFY(f.reconnection.untilNextAttempt().value_or(1h) <= 20ms);
}

void ReconnectionTest::a_robot_that_drops_every_link_at_once_is_tried_at_growing_intervals()
{
    Fixture f(1h);
    QVERIFY(f.open());
    for (const auto pause : {20ms, 40ms, 80ms, 80ms}) {
        f.robot->drop();
        QVERIFY(f.reaches(Connection::notConnected));
        QVERIFY(f.reconnection.untilNextAttempt().value_or(1h) <= pause);
        QVERIFY(f.reaches(Connection::connected));
        QVERIFY2(f.pauses.last() >= pause.count() - 2,
                 qPrintable(QString::number(f.pauses.last())));
    }

    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    f.reconnection.forget(); // a person connects: the pauses start anew
    QVERIFY(f.open());
    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    QVERIFY(f.reconnection.untilNextAttempt().value_or(1h) <= 20ms);
}

void ReconnectionTest::a_connection_that_never_was_is_not_tried_again()
{
    Fixture f;
    f.takeRobotAway();
    QVERIFY(f.connection.open(f.address));
    QVERIFY(f.reaches(Connection::notConnected));
    QVERIFY(!f.reconnection.isLost());
    QVERIFY(!f.reconnection.isTrying());
}

void ReconnectionTest::what_a_person_closes_stays_closed()
{
    Fixture f;
    QVERIFY(f.open());
    f.reconnection.forget();
    QVERIFY(f.connection.close());
    QVERIFY(!f.reconnection.isLost());
    QVERIFY(!f.reconnection.isTrying());
}

void ReconnectionTest::giving_up_ends_the_attempts()
{
    Fixture f;
    QVERIFY(f.open());
    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    f.reconnection.giveUp();
    QVERIFY(!f.reconnection.isTrying());
    QVERIFY(!f.reconnection.untilNextAttempt());
    QVERIFY(f.reconnection.isLost()); // that it was lost is still so
}

void ReconnectionTest::giving_up_ends_an_attempt_under_way()
{
    Fixture f;
    QVERIFY(f.open());
    f.robot->ignore("/control/acquire");
    f.robot->drop();
    QTRY_COMPARE_WITH_TIMEOUT(f.attempts, 2, patience);
    QVERIFY(f.connection.state() >= 0);
    f.reconnection.giveUp();
    QCOMPARE(f.connection.state(), Connection::notConnected);
    QVERIFY(!f.reconnection.isTrying());
    QVERIFY(!f.reconnection.untilNextAttempt());
}

void ReconnectionTest::connecting_by_hand_takes_over()
{
    Fixture f;
    QVERIFY(f.open());
    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    f.reconnection.forget();
    QVERIFY(f.open());
    QVERIFY(!f.reconnection.untilNextAttempt());
    QVERIFY(!f.reconnection.isLost());
}

void ReconnectionTest::switched_off_it_only_knows_of_the_loss()
{
    Fixture f;
    QVERIFY(f.open());
    f.reconnection.setAutomatic(false);
    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    QVERIFY(f.reconnection.isLost());
    QVERIFY(!f.reconnection.isTrying());

    QVERIFY((f.reconnection.forget(), f.open()));
    f.reconnection.setAutomatic(true);
    f.robot->drop();
    QVERIFY(f.reaches(Connection::notConnected));
    QVERIFY(f.reconnection.isTrying());
    f.reconnection.setAutomatic(false);
    QVERIFY(!f.reconnection.isTrying());
}

TEST_WITHOUT_WINDOWS(ReconnectionTest)

} // namespace reconnection_test

#include "ReconnectionTest.moc"
