// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "rosbridge/server/Outbox.h"

#include <QtTest>

namespace outbox_test {

using rosbridge::server::EncodedMessage;
using rosbridge::server::Encoding;
using rosbridge::server::Outbox;

/// Outbox: what is dropped when a client reads too slowly.
class OutboxTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void messages_come_out_in_order();
    void the_oldest_message_of_a_topic_makes_room();
    void answers_are_never_dropped();
    void too_many_answers_are_refused();
    void a_topic_makes_no_room_among_answers();
    void a_fleeting_message_does_not_wait_behind_others();
    void a_fleeting_message_makes_room();
    void a_single_message_is_taken_whatever_its_size();

private:
    static EncodedMessage frame(char name, int size = 10)
    {
        return {Encoding::Json, QByteArray(size, name)};
    }

    static QByteArray contents(Outbox& outbox)
    {
        QByteArray names;
        while (const auto frame = outbox.pop())
            names.append(frame->bytes.at(0));
        return names;
    }
};

void OutboxTest::messages_come_out_in_order()
{
    Outbox outbox(100);
    QVERIFY(outbox.isEmpty());
    QVERIFY(outbox.push(frame('a'), Outbox::Kind::Answer));
    QVERIFY(outbox.push(frame('b'), Outbox::Kind::Topic));
    QVERIFY(outbox.push(frame('c'), Outbox::Kind::Answer));
    QVERIFY(!outbox.isEmpty());
    QCOMPARE(outbox.bytes(), qint64(30));
    QCOMPARE(contents(outbox), QByteArray("abc"));
    QVERIFY(outbox.isEmpty());
    QCOMPARE(outbox.bytes(), qint64(0));
    QCOMPARE(outbox.dropped(), quint64(0));
}

void OutboxTest::the_oldest_message_of_a_topic_makes_room()
{
    Outbox outbox(30);
    for (const char name : {'a', 'b', 'c', 'd'})
        QVERIFY(outbox.push(frame(name), Outbox::Kind::Topic));
    QVERIFY(outbox.push(frame('e', 15), Outbox::Kind::Topic));
    QCOMPARE(outbox.bytes(), qint64(25));
    QCOMPARE(outbox.dropped(), quint64(3));
    QCOMPARE(contents(outbox), QByteArray("de"));
}

void OutboxTest::answers_are_never_dropped()
{
    Outbox outbox(30);
    QVERIFY(outbox.push(frame('a'), Outbox::Kind::Answer));
    QVERIFY(outbox.push(frame('b'), Outbox::Kind::Topic));
    QVERIFY(outbox.push(frame('c'), Outbox::Kind::Topic));
    QVERIFY(outbox.push(frame('d'), Outbox::Kind::Answer));
    QVERIFY(outbox.push(frame('e'), Outbox::Kind::Answer));
    QCOMPARE(outbox.dropped(), quint64(2));
    QCOMPARE(contents(outbox), QByteArray("ade"));
}

void OutboxTest::too_many_answers_are_refused()
{
    Outbox outbox(30);
    for (const char name : {'a', 'b', 'c'})
        QVERIFY(outbox.push(frame(name), Outbox::Kind::Answer));
    QVERIFY(!outbox.push(frame('d'), Outbox::Kind::Answer));
}

void OutboxTest::a_topic_makes_no_room_among_answers()
{
    Outbox outbox(30);
    for (const char name : {'a', 'b', 'c'})
        QVERIFY(outbox.push(frame(name), Outbox::Kind::Answer));
    QVERIFY(outbox.push(frame('d'), Outbox::Kind::Topic));
    QCOMPARE(outbox.dropped(), quint64(1));
    QCOMPARE(contents(outbox), QByteArray("abc"));
}

void OutboxTest::a_fleeting_message_does_not_wait_behind_others()
{
    Outbox outbox(100);
    QVERIFY(outbox.push(frame('a'), Outbox::Kind::Fleeting));
    QVERIFY(outbox.push(frame('b'), Outbox::Kind::Fleeting));
    QVERIFY(outbox.push(frame('c'), Outbox::Kind::Topic));
    QVERIFY(outbox.push(frame('d'), Outbox::Kind::Fleeting));
    QCOMPARE(outbox.dropped(), quint64(0)); // no reason for a warning
    QCOMPARE(contents(outbox), QByteArray("ac"));
}

void OutboxTest::a_fleeting_message_makes_room()
{
    Outbox outbox(30);
    QVERIFY(outbox.push(frame('a'), Outbox::Kind::Fleeting));
    QVERIFY(outbox.push(frame('b', 25), Outbox::Kind::Topic));
    QCOMPARE(contents(outbox), QByteArray("b"));
}

void OutboxTest::a_single_message_is_taken_whatever_its_size()
{
    Outbox outbox(30);
    QVERIFY(outbox.push(frame('a'), Outbox::Kind::Topic));
    QVERIFY(outbox.push(frame('b', 1000), Outbox::Kind::Topic));
    QCOMPARE(contents(outbox), QByteArray("b"));
    QVERIFY(outbox.push(frame('c', 1000), Outbox::Kind::Answer));
    QCOMPARE(contents(outbox), QByteArray("c"));
}

TEST_WITHOUT_WINDOWS(OutboxTest)

} // namespace outbox_test

#include "OutboxTest.moc"
