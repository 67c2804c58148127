// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/connection/Delay.h"

#include <QtTest>

namespace delay_test {

using host::device::connection::Delay;
using namespace std::chrono_literals;
using std::chrono::milliseconds;

namespace {

QCborMap stamped(milliseconds stamp, bool isRos2 = false)
{
    const qint64 seconds = stamp / 1s;
    const qint64 nanoseconds = std::chrono::nanoseconds(stamp % 1s).count();
    const QCborMap time =
        isRos2
            ? QCborMap{{QStringLiteral("sec"), seconds}, {QStringLiteral("nanosec"), nanoseconds}}
            : QCborMap{{QStringLiteral("secs"), seconds}, {QStringLiteral("nsecs"), nanoseconds}};
    return {{QStringLiteral("header"), QCborMap{{QStringLiteral("stamp"), time}}}};
}

/// Of the last thing that happened.
qint64 count(std::optional<milliseconds> delay)
{
    return delay ? delay->count() : -1;
}

} // namespace

/// How late data comes, whatever the robot's clock shows.
class DelayTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void without_stamps_it_is_not_known();
    void it_is_what_a_message_took_longer_than_the_quickest_data();
    void it_is_what_a_message_took_longer_than_the_quickest();
    void it_is_that_of_the_topic_that_is_least_late();
    void a_stamp_that_came_before_is_no_news();
    void while_the_line_is_quick_a_slow_clock_is_no_delay();
    void of_another_link_nothing_is_left();

private:
    const Delay::Clock::time_point m_start = Delay::Clock::now();
};

void DelayTest::without_stamps_it_is_not_known()
{
    Delay delay;
    QCOMPARE(count(delay.value(m_start)), -1);
    delay.hear("/scan", {}, m_start);
    delay.hear("/scan", {{QStringLiteral("header"), 7}}, m_start);
    delay.hear("/scan", stamped(0ms), m_start); // by whom nobody knows
    QCOMPARE(count(delay.value(m_start)), -1);
}

void DelayTest::it_is_what_a_message_took_longer_than_the_quickest_data()
{
    QTest::addColumn<bool>("isRos2");
    QTest::newRow("ROS 1") << false;
    QTest::newRow("ROS 2") << true;
}

void DelayTest::it_is_what_a_message_took_longer_than_the_quickest()
{
    QFETCH(const bool, isRos2);
    Delay delay;
    const milliseconds clock = 1700000000s; // the robot's, at the start
    delay.hear("/scan", stamped(clock, isRos2), m_start + 150ms);
    QCOMPARE(count(delay.value(m_start + 150ms)), 0);
    delay.hear("/scan", stamped(clock + 1s, isRos2), m_start + 1s + 50ms);
    QCOMPARE(count(delay.value(m_start + 2s)), 0);
    delay.hear("/scan", stamped(clock + 2s, isRos2), m_start + 5s + 50ms);
    QCOMPARE(count(delay.value(m_start + 6s)), 3000);
    QCOMPARE(count(delay.value(m_start + 10s)), -1); // by now the data is old
}

void DelayTest::it_is_that_of_the_topic_that_is_least_late()
{
    Delay delay;
    for (const char* topic : {"/map", "/scan"})
        delay.hear(topic, stamped(10s), m_start);
    delay.hear("/map", stamped(11s), m_start + 31s); // which took its time to be made
    delay.hear("/scan", stamped(40s), m_start + 31s);
    QCOMPARE(count(delay.value(m_start + 31s)), 1000);
}

void DelayTest::a_stamp_that_came_before_is_no_news()
{
    Delay delay;
    delay.hear("/map", stamped(10s), m_start);
    delay.hear("/map", stamped(10s), m_start + 60s); // told again to a further subscriber
    QCOMPARE(count(delay.value(m_start + 60s)), -1);
}

void DelayTest::while_the_line_is_quick_a_slow_clock_is_no_delay()
{
    for (const milliseconds answer : {milliseconds(5), milliseconds(3000)}) {
        Delay delay;
        for (int second = 1; second <= 60; ++second) { // of a simulation at half the speed
            delay.hear("/odom", stamped(second * 500ms), m_start + second * 1s);
            delay.answered(answer);
        }
        const auto late = count(delay.value(m_start + 60s));
        QVERIFY2(answer < 1s ? late == 0 : late == 29500, qPrintable(QString::number(late)));
    }
}

void DelayTest::of_another_link_nothing_is_left()
{
    Delay delay;
    delay.hear("/scan", stamped(60s), m_start);
    delay.reset();
    delay.hear("/scan", stamped(10s), m_start + 1s);
    QCOMPARE(count(delay.value(m_start + 1s)), 0);
}

TEST_WITHOUT_WINDOWS(DelayTest)

} // namespace delay_test

#include "DelayTest.moc"
