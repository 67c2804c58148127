// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/TestBag.h"

#include "robot/recording/BagPlayer.h"

#include <QtTest>

namespace bag_player_test {

using robot::recording::BagPlayer;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

std::unique_ptr<BagPlayer> open(TestBag& bag, const BagPlayer::Options& options = {})
{
    bag.close();
    QString error;
    auto player = BagPlayer::open(bag.path(), options, &error);
    if (!player)
        qWarning("%s", qPrintable(error));
    return player;
}

/// The texts that are due after @p elapsed more.
QStringList after(BagPlayer& player, BagPlayer::Time elapsed)
{
    player.advance(elapsed);
    QStringList texts;
    while (player.next())
        texts.append(player.message(nullptr).value_or(QCborMap()).value("data").toString());
    return texts;
}

void fill(TestBag& bag)
{
    bag.write("/a", 0, "0");
    bag.write("/a", 1, "1");
    bag.write("/a", 2.5, "2.5");
}

} // namespace

/// BagPlayer: when which message is due.
class BagPlayerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void messages_are_due_when_they_were_recorded();
    void the_rate_changes_how_fast_time_passes();
    void a_loop_begins_again_after_a_pause();
    void after_the_end_it_can_begin_again();
    void it_can_start_later_with_what_was_latched_before();
    void a_start_after_the_end_is_refused();
    void topics_of_unknown_types_are_left_out();
    void a_bag_without_any_known_type_is_refused();
};

void BagPlayerTest::messages_are_due_when_they_were_recorded()
{
    TestBag bag;
    fill(bag);
    const auto player = open(bag);
    QVERIFY(player);
    QCOMPARE(player->duration(), BagPlayer::Time(milliseconds(2500)));
    QCOMPARE(after(*player, seconds(0)), QStringList("0"));
    QCOMPARE(after(*player, milliseconds(999)), QStringList());
    QCOMPARE(after(*player, milliseconds(1)), QStringList("1"));
    QVERIFY(!player->isFinished());
    QCOMPARE(player->now(), BagPlayer::Time(seconds(1600000001)));
    QCOMPARE(after(*player, seconds(9)), QStringList("2.5"));
    QVERIFY(player->isFinished());
    QCOMPARE(after(*player, seconds(9)), QStringList());
}

void BagPlayerTest::the_rate_changes_how_fast_time_passes()
{
    TestBag bag;
    fill(bag);
    BagPlayer::Options options;
    options.rate = 0.5;
    const auto player = open(bag, options);
    QVERIFY(player);
    QCOMPARE(after(*player, milliseconds(1999)), QStringList("0"));
    QCOMPARE(after(*player, milliseconds(1)), QStringList("1"));
}

void BagPlayerTest::a_loop_begins_again_after_a_pause()
{
    TestBag bag;
    fill(bag);
    BagPlayer::Options options;
    options.isLooping = true;
    const auto player = open(bag, options);
    QVERIFY(player);
    QCOMPARE(after(*player, milliseconds(2500)), (QStringList{"0", "1", "2.5"}));
    QVERIFY(!player->isFinished());
    QCOMPARE(after(*player, milliseconds(100)), QStringList());
    QCOMPARE(after(*player, milliseconds(1)), QStringList("0"));
    QCOMPARE(after(*player, seconds(1)), QStringList("1"));
}

void BagPlayerTest::after_the_end_it_can_begin_again()
{
    TestBag bag;
    fill(bag);
    const auto player = open(bag);
    QVERIFY(player);
    QCOMPARE(after(*player, seconds(3)).size(), 3);
    player->restart();
    QVERIFY(!player->isFinished());
    QCOMPARE(after(*player, seconds(1)), (QStringList{"0", "1"}));
}

void BagPlayerTest::it_can_start_later_with_what_was_latched_before()
{
    TestBag bag;
    bag.writeLatched("/map", 0, "old map");
    bag.writeLatched("/map", 0.5, "map");
    bag.write("/a", 0.75, "not seen");
    bag.writeLatched("/plan", 0.8, "plan");
    bag.write("/a", 1, "1");
    bag.writeLatched("/map", 2, "new map");
    BagPlayer::Options options;
    options.start = seconds(1);
    options.isLooping = true;
    const auto player = open(bag, options);
    QVERIFY(player);
    const QStringList first{"map", "plan", "1"};
    QCOMPARE(after(*player, seconds(0)), first);
    QCOMPARE(after(*player, seconds(1)), QStringList("new map"));
    QCOMPARE(after(*player, seconds(1)), first);
}

void BagPlayerTest::a_start_after_the_end_is_refused()
{
    TestBag bag;
    fill(bag);
    bag.close();
    BagPlayer::Options options;
    options.start = seconds(3);
    QString error;
    QVERIFY(!BagPlayer::open(bag.path(), options, &error));
    QCOMPARE(error, bag.path() + ": it is only 2.5 s long");
}

void BagPlayerTest::topics_of_unknown_types_are_left_out()
{
    TestBag bag;
    bag.write("/a", 0, "text");
    bag.writeUndefined("/secret", 1);
    const auto player = open(bag);
    QVERIFY(player);
    QCOMPARE(player->problems().size(), 1);
    QVERIFY(player->problems().first().startsWith("/secret is left out: "));
    for (const BagPlayer::Topic& topic : player->topics())
        QCOMPARE(topic.definition.has_value(), topic.name == "/a");
    QString error;
    player->advance(seconds(1));
    player->next();
    QVERIFY(player->message(&error));
    player->next();
    QVERIFY(!player->message(&error));
}

void BagPlayerTest::a_bag_without_any_known_type_is_refused()
{
    TestBag bag;
    bag.writeUndefined("/secret", 1);
    bag.close();
    QString error;
    QVERIFY(!BagPlayer::open(bag.path(), {}, &error));
    QVERIFY2(error.startsWith(bag.path() + ": there is no topic"), qPrintable(error));
}

TEST_WITHOUT_WINDOWS(BagPlayerTest)

} // namespace bag_player_test

#include "BagPlayerTest.moc"
