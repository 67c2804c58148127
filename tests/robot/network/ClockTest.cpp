#include "TestCase.h"

#include "robot/network/Clock.h"

#include <QtTest>

namespace clock_test {

using namespace std::chrono_literals;
using robot::network::Clock;

/// Clock: the simulation's time.
class ClockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void time_begins_at_zero_and_goes_on();
    void advancing_returns_the_time_that_passed();
    void time_stands_still_beyond_the_longest_step();
    void a_stamp_has_seconds_and_nanoseconds();
};

void ClockTest::time_begins_at_zero_and_goes_on()
{
    const Clock clock;
    const auto first = clock.now();
    QVERIFY(first >= 0ns);
    QVERIFY(first < 1min);
    QTRY_VERIFY(clock.now() > first);
}

void ClockTest::advancing_returns_the_time_that_passed()
{
    Clock clock;
    QTRY_VERIFY(clock.now() > 20ms);
    const auto before = clock.now();
    const auto first = clock.advance();
    QVERIFY(first >= before);
    QTRY_VERIFY(clock.now() > first + 2ms);
    const auto second = clock.advance();
    QVERIFY(second > 2ms);
    QVERIFY(second <= clock.now() - before);
}

void ClockTest::time_stands_still_beyond_the_longest_step()
{
    Clock clock(1ms);
    QTRY_VERIFY(clock.now() == 1ms);
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(timer.elapsed() > 5);
    QVERIFY(clock.now() == 1ms);
    QVERIFY(clock.advance() == 1ms);
    QTRY_VERIFY(clock.now() == 2ms);
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
