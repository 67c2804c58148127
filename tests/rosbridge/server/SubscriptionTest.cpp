// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AmpleLimits.h"
#include "TestCase.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/server/Publication.h"
#include "rosbridge/server/Subscription.h"

#include <QtTest>

namespace subscription_test {

using namespace std::chrono_literals;
using rosbridge::server::EncodedMessage;
using rosbridge::server::Encoding;
using rosbridge::server::Limits;
using rosbridge::server::Publication;
using rosbridge::server::Subscription;

/// Subscription: throttle_rate and queue_length, with the time told by the test.
class SubscriptionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void without_a_throttle_every_message_is_sent_at_once();
    void a_throttle_drops_what_comes_too_early();
    void a_queue_keeps_what_comes_too_early();
    void a_full_queue_loses_its_oldest_message();
    void a_queue_is_no_longer_than_the_limit();
    void a_queue_is_no_larger_than_the_limit();
    void a_single_message_is_kept_whatever_its_size();
    void the_lowest_throttle_and_the_longest_queue_count();
    void what_is_cancelled_counts_no_more();
    void a_request_with_the_same_id_replaces_the_earlier();
    void the_encoding_is_cbor_if_any_request_asks_for_it();

private:
    static QCborValue noId() { return QCborValue(QCborValue::Undefined); }

    static Publication number(int data)
    {
        return {QStringLiteral("/number"), {{QStringLiteral("data"), data}}};
    }

    /// The number in the next message at @p now; -1 if there is none.
    static int taken(Subscription& subscription, Subscription::Time now)
    {
        const std::optional<EncodedMessage> frame = subscription.take(now);
        if (!frame)
            return -1;
        const auto message = frame->encoding == Encoding::Json
                                 ? rosbridge::protocol::decodeText(frame->bytes, nullptr)
                                 : rosbridge::protocol::decodeBinary(frame->bytes, nullptr);
        return static_cast<int>(
            (*message)[QLatin1String("msg")][QLatin1String("data")].toInteger());
    }

    const QString m_name = QStringLiteral("/number");
};

void SubscriptionTest::without_a_throttle_every_message_is_sent_at_once()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(noId(), {0ms, 0, Encoding::Json});
    QVERIFY(!subscription.due());
    for (int i = 0; i < 3; ++i) {
        subscription.offer(number(i), 5ms);
        QCOMPARE(taken(subscription, 5ms), i);
        QCOMPARE(taken(subscription, 5ms), -1);
    }
    QVERIFY(!subscription.due());
}

void SubscriptionTest::a_throttle_drops_what_comes_too_early()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(noId(), {100ms, 0, Encoding::Json});
    subscription.offer(number(1), 0ms);
    QCOMPARE(taken(subscription, 0ms), 1);
    subscription.offer(number(2), 99ms);
    QVERIFY(!subscription.due());
    QCOMPARE(taken(subscription, 100ms), -1);
    subscription.offer(number(3), 100ms);
    QCOMPARE(taken(subscription, 100ms), 3);
    subscription.offer(number(4), 150ms);
    QCOMPARE(taken(subscription, 250ms), -1);
}

void SubscriptionTest::a_queue_keeps_what_comes_too_early()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(noId(), {100ms, 2, Encoding::Json});
    subscription.offer(number(1), 10ms);
    QCOMPARE(taken(subscription, 10ms), 1);
    subscription.offer(number(2), 20ms);
    subscription.offer(number(3), 30ms);
    QVERIFY(subscription.due() == 110ms);
    QCOMPARE(taken(subscription, 109ms), -1);
    QCOMPARE(taken(subscription, 120ms), 2);
    QVERIFY(subscription.due() == 220ms);
    QCOMPARE(taken(subscription, 219ms), -1);
    QCOMPARE(taken(subscription, 220ms), 3);
    QVERIFY(!subscription.due());
}

void SubscriptionTest::a_full_queue_loses_its_oldest_message()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(noId(), {100ms, 2, Encoding::Json});
    subscription.offer(number(0), 0ms);
    QCOMPARE(taken(subscription, 0ms), 0);
    for (int i = 1; i <= 5; ++i)
        subscription.offer(number(i), 10ms);
    QCOMPARE(taken(subscription, 100ms), 4);
    QCOMPARE(taken(subscription, 200ms), 5);
    QCOMPARE(taken(subscription, 300ms), -1);
}

void SubscriptionTest::a_queue_is_no_longer_than_the_limit()
{
    Limits limits = ampleLimits();
    limits.queueLength = 3;
    Subscription subscription(m_name, limits);
    subscription.request(noId(), {100ms, 1000000, Encoding::Json});
    for (int i = 1; i <= 5; ++i)
        subscription.offer(number(i), 0ms);
    QCOMPARE(taken(subscription, 100ms), 3);
    QCOMPARE(taken(subscription, 200ms), 4);
    QCOMPARE(taken(subscription, 300ms), 5);
    QCOMPARE(taken(subscription, 400ms), -1);
}

void SubscriptionTest::a_queue_is_no_larger_than_the_limit()
{
    Limits limits = ampleLimits();
    limits.queueBytes = 2 * static_cast<int>(number(1).frame(m_name, Encoding::Json).bytes.size());
    Subscription subscription(m_name, limits);
    subscription.request(noId(), {100ms, 10, Encoding::Json});
    for (int i = 1; i <= 5; ++i)
        subscription.offer(number(i), 0ms);
    QCOMPARE(taken(subscription, 100ms), 4);
    subscription.offer(number(6), 100ms);
    QCOMPARE(taken(subscription, 200ms), 5);
    QCOMPARE(taken(subscription, 300ms), 6);
    QCOMPARE(taken(subscription, 400ms), -1);
}

void SubscriptionTest::a_single_message_is_kept_whatever_its_size()
{
    Limits limits = ampleLimits();
    limits.queueBytes = 1;
    Subscription subscription(m_name, limits);
    subscription.request(noId(), {100ms, 10, Encoding::Json});
    subscription.offer(number(1), 0ms);
    subscription.offer(number(2), 0ms);
    QCOMPARE(taken(subscription, 0ms), 2);
}

void SubscriptionTest::the_lowest_throttle_and_the_longest_queue_count()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(QStringLiteral("a"), {100ms, 0, Encoding::Json});
    subscription.request(QStringLiteral("b"), {300ms, 2, Encoding::Json});
    for (int i = 1; i <= 3; ++i)
        subscription.offer(number(i), 0ms);
    QCOMPARE(taken(subscription, 0ms), 2);
    QCOMPARE(taken(subscription, 99ms), -1);
    QCOMPARE(taken(subscription, 100ms), 3);
}

void SubscriptionTest::what_is_cancelled_counts_no_more()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(QStringLiteral("a"), {0ms, 0, Encoding::Cbor});
    subscription.request(7, {100ms, 0, Encoding::Json});
    QVERIFY(subscription.contains(QStringLiteral("a")));
    subscription.cancel(QStringLiteral("a"));
    QVERIFY(!subscription.contains(QStringLiteral("a")));
    QVERIFY(subscription.contains(7));
    QCOMPARE(subscription.requestCount(), 1);
    subscription.offer(number(1), 0ms);
    const std::optional<EncodedMessage> frame = subscription.take(0ms);
    QVERIFY(frame && frame->encoding == Encoding::Json);
    subscription.offer(number(2), 99ms);
    QCOMPARE(taken(subscription, 99ms), -1);
}

void SubscriptionTest::a_request_with_the_same_id_replaces_the_earlier()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(noId(), {0ms, 0, Encoding::Json});
    subscription.request(noId(), {100ms, 0, Encoding::Json});
    QCOMPARE(subscription.requestCount(), 1);
    subscription.offer(number(1), 0ms);
    QCOMPARE(taken(subscription, 0ms), 1);
    subscription.offer(number(2), 99ms);
    QCOMPARE(taken(subscription, 99ms), -1);
}

void SubscriptionTest::the_encoding_is_cbor_if_any_request_asks_for_it()
{
    Subscription subscription(m_name, ampleLimits());
    subscription.request(1, {0ms, 0, Encoding::Cbor});
    subscription.request(2, {0ms, 0, Encoding::Json});
    subscription.offer(number(1), 0ms);
    const std::optional<EncodedMessage> frame = subscription.take(0ms);
    QVERIFY(frame && frame->encoding == Encoding::Cbor);
}

TEST_WITHOUT_WINDOWS(SubscriptionTest)

} // namespace subscription_test

#include "SubscriptionTest.moc"
