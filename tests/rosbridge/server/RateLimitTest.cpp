// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "rosbridge/server/RateLimit.h"

#include <QtTest>

namespace rate_limit_test {

using namespace std::chrono_literals;
using rosbridge::server::RateLimit;

/// RateLimit: how many events are allowed, with the time told by the test.
class RateLimitTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_burst_is_allowed_and_no_more();
    void the_rate_is_allowed_for_ever();
    void a_pause_allows_a_burst_again_and_no_more();
};

void RateLimitTest::a_burst_is_allowed_and_no_more()
{
    RateLimit limit(10, 3);
    for (int i = 0; i < 3; ++i)
        QVERIFY(limit.allow(5ms));
    QVERIFY(!limit.allow(5ms));
}

void RateLimitTest::the_rate_is_allowed_for_ever()
{
    RateLimit limit(100, 2);
    auto now = 0ms;
    for (int i = 0; i < 1000; ++i, now += 10ms)
        QVERIFY(limit.allow(now));
    QVERIFY(limit.allow(now));
    QVERIFY(limit.allow(now));
    QVERIFY(!limit.allow(now));
}

void RateLimitTest::a_pause_allows_a_burst_again_and_no_more()
{
    RateLimit limit(10, 3);
    while (limit.allow(0ms)) {
    }
    for (int i = 0; i < 3; ++i)
        QVERIFY(limit.allow(1h));
    QVERIFY(!limit.allow(1h));
}

TEST_WITHOUT_WINDOWS(RateLimitTest)

} // namespace rate_limit_test

#include "RateLimitTest.moc"
