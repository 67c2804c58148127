// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "robot/network/Clock.h"

#include <QElapsedTimer>
#include <QtTest>

namespace clock_test {

using namespace std::chrono_literals;
using robot::network::Clock;

/// Clock: the simulation's time.
class ClockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void time_begins_at_zero_and_stands_still_until_it_is_advanced();
    void each_step_counts_from_the_one_before();
    void time_stands_still_beyond_the_longest_step();
    void a_stamp_has_seconds_and_nanoseconds();
};

void ClockTest::time_begins_at_zero_and_stands_still_until_it_is_advanced()
{
    Clock clock;
    QVERIFY(clock.now() == 0ns);
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(timer.elapsed() > 20);
    QVERIFY(clock.now() == 0ns);
    const auto step = clock.advance();
    QVERIFY(step > 20ms);
    QVERIFY(step < 1min);
    QVERIFY(clock.now() == step);
}

void ClockTest::each_step_counts_from_the_one_before()
{
    Clock clock;
    QElapsedTimer timer;
    timer.start();
    std::chrono::nanoseconds sum{0};
    for (int i = 0; i < 3; ++i) {
        const qint64 then = timer.elapsed();
        QTRY_VERIFY(timer.elapsed() > then + 5);
        sum += clock.advance();
        QVERIFY(clock.now() == sum);
    }
    QVERIFY(sum > 15ms);
    QVERIFY(sum <= std::chrono::milliseconds(timer.elapsed() + 1));
}

void ClockTest::time_stands_still_beyond_the_longest_step()
{
    Clock clock(1ms);
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(timer.elapsed() > 5);
    QVERIFY(clock.advance() == 1ms);
    QVERIFY(clock.now() == 1ms);
}

void ClockTest::a_stamp_has_seconds_and_nanoseconds()
{
    QCOMPARE(Clock::stamp(90s + 7ns),
             (QCborMap{{QStringLiteral("secs"), 90}, {QStringLiteral("nsecs"), 7}}));
    QCOMPARE(Clock::stamp(999999999ns),
             (QCborMap{{QStringLiteral("secs"), 0}, {QStringLiteral("nsecs"), 999999999}}));
}

TEST_WITHOUT_WINDOWS(ClockTest)

} // namespace clock_test

#include "ClockTest.moc"
