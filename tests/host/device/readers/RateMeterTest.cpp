// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/readers/RateMeter.h"

#include <QtTest>

namespace rate_meter_test {

using host::device::readers::RateMeter;
using std::chrono::milliseconds;

/// The numbers of the rate, with a time of its own.
class RateMeterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_steady_rate_is_told_data();
    void a_steady_rate_is_told();
    void a_rate_is_rounded();
    void one_arrival_is_no_rate();
    void many_at_once_are_no_rate();
    void a_new_rate_is_told_after_a_second();
    void a_second_of_silence_ends_the_rate();
};

void RateMeterTest::a_steady_rate_is_told_data()
{
    QTest::addColumn<int>("rate");
    for (const int rate : {1, 2, 10, 20, 30, 100})
        QTest::addRow("%d Hz", rate) << rate;
}

void RateMeterTest::a_steady_rate_is_told()
{
    QFETCH(int, rate);
    RateMeter meter;
    RateMeter::TimePoint now;
    for (int i = 0; i < 5 * rate; ++i) {
        now += std::chrono::microseconds(1000000 / rate);
        meter.arrived(now);
    }
    QCOMPARE(meter.rate(now), unsigned(rate));
}

void RateMeterTest::a_rate_is_rounded()
{
    RateMeter meter;
    RateMeter::TimePoint now;
    for (int i = 0; i < 5; ++i)
        meter.arrived(now += milliseconds(180)); // 5.56 Hz
    QCOMPARE(meter.rate(now), 6U);
}

void RateMeterTest::one_arrival_is_no_rate()
{
    RateMeter meter;
    const RateMeter::TimePoint now;
    QVERIFY(meter.isSilent(now));
    meter.arrived(now);
    QVERIFY(!meter.isSilent(now));
    QCOMPARE(meter.rate(now), 0U);
}

void RateMeterTest::many_at_once_are_no_rate()
{
    RateMeter meter;
    const RateMeter::TimePoint now;
    meter.arrived(now);
    meter.arrived(now);
    QCOMPARE(meter.rate(now), 0U);
    meter.arrived(now + milliseconds(50)); // of a stream that was held up
    QCOMPARE(meter.rate(now + milliseconds(50)), 0U);
    meter.arrived(now + milliseconds(100));
    QCOMPARE(meter.rate(now + milliseconds(100)), 30U);
}

void RateMeterTest::a_new_rate_is_told_after_a_second()
{
    RateMeter meter;
    RateMeter::TimePoint now;
    for (int i = 0; i < 30; ++i)
        meter.arrived(now += milliseconds(20));
    for (int i = 0; i < 11; ++i)
        meter.arrived(now += milliseconds(100));
    QCOMPARE(meter.rate(now), 10U);
}

void RateMeterTest::a_second_of_silence_ends_the_rate()
{
    RateMeter meter;
    RateMeter::TimePoint now;
    for (int i = 0; i < 30; ++i)
        meter.arrived(now += milliseconds(100));
    QCOMPARE(meter.rate(now + milliseconds(1000)), 10U);
    QVERIFY(!meter.isSilent(now + milliseconds(1000)));
    QCOMPARE(meter.rate(now + milliseconds(1001)), 0U);
    QVERIFY(meter.isSilent(now + milliseconds(1001)));
}

TEST_WITHOUT_WINDOWS(RateMeterTest)

} // namespace rate_meter_test

#include "RateMeterTest.moc"
