// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Reading.h"
#include "TestCase.h"

#include <QtTest>

namespace frame_reader_test {

using namespace rosbridge::websocket;

namespace {

constexpr int limit = 300000;

QByteArray serverFrame(const char* start, const QByteArray& payload)
{
    return start + QByteArray(1, static_cast<char>(payload.size())) + payload;
}

} // namespace

class FrameReaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_one_end_sends_the_other_reads_data();
    void what_one_end_sends_the_other_reads();
    void a_message_may_come_in_parts_with_pings_between();
    void what_breaks_the_rules_is_a_fault_data();
    void what_breaks_the_rules_is_a_fault();
    void a_message_of_endless_empty_frames_is_a_fault();
    void some_empty_frames_are_none();
    void a_server_takes_no_message_that_is_too_large();
    void a_client_leaves_out_what_is_too_large_and_reads_on();
};

void FrameReaderTest::what_one_end_sends_the_other_reads_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 125, 126, 65535, 65536, limit})
        QTest::addRow("%d bytes", size) << size;
}

void FrameReaderTest::what_one_end_sends_the_other_reads()
{
    QFETCH(int, size);
    const QByteArray payload(size, 'x');
    for (const Role sender : {Role::Client, Role::Server}) {
        const Role reader = sender == Role::Client ? Role::Server : Role::Client;
        const QByteArray bytes = frame(Opcode::Binary, payload, sender);
        QCOMPARE(bytes.endsWith(payload), sender == Role::Server || size == 0);
        for (const int step : {7, 1000000}) {
            const Reading reading =
                read(reader, bytes + frame(Opcode::Ping, "p", sender), step, limit);
            QVERIFY2(!reading.fault, qPrintable(reading.fault.value_or(FrameReader::Fault()).text));
            QCOMPARE(int(reading.items.size()), 2);
            QCOMPARE(reading.items.first().opcode, Opcode::Binary);
            QVERIFY(reading.items.first().data == payload);
            QCOMPARE(reading.items.last().opcode, Opcode::Ping);
            QCOMPARE(reading.items.last().data, QByteArray("p"));
        }
    }
}

void FrameReaderTest::a_message_may_come_in_parts_with_pings_between()
{
    const QByteArray bytes =
        serverFrame("\x01", "one ") + serverFrame("\x89", "ping") + serverFrame("\x80", "two");
    for (const int step : {1, 1000}) {
        const Reading reading = read(Role::Client, bytes, step, limit);
        QVERIFY(!reading.fault);
        QCOMPARE(int(reading.items.size()), 2);
        QCOMPARE(reading.items.first().opcode, Opcode::Ping);
        QCOMPARE(reading.items.first().data, QByteArray("ping"));
        QCOMPARE(reading.items.last().opcode, Opcode::Text);
        QCOMPARE(reading.items.last().data, QByteArray("one two"));
    }
}

void FrameReaderTest::what_breaks_the_rules_is_a_fault_data()
{
    QTest::addColumn<bool>("isServer");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, bool isServer, const QByteArray& bytes) {
        QTest::newRow(name) << isServer << bytes;
    };
    row("reserved bits", false, QByteArray("\xf1\x01x", 3));
    row("unknown kind", false, QByteArray("\x83\x01x", 3));
    row("unknown control", false, QByteArray("\x8b\x00", 2));
    row("masked by a server", false, frame(Opcode::Text, "x", Role::Client));
    row("not masked by a client", true, frame(Opcode::Text, "x", Role::Server));
    row("continues nothing", false, QByteArray("\x80\x01x", 3));
    row("begins inside another", false, QByteArray("\x01\x01x\x81\x01x", 6));
    row("ping in parts", false, QByteArray("\x09\x01x", 3));
    row("long ping", false, QByteArray("\x89\x7e\x00\x7e", 4));
    row("length of 2 bytes for 1", false, QByteArray("\x82\x7e\x00\x7d", 4));
    row("length of 8 bytes for 2", false, QByteArray("\x82\x7f\0\0\0\0\0\0\xff\xff", 10));
    row("length beyond the greatest", false,
        QByteArray("\x82\x7f\xff\xff\xff\xff\xff\xff\xff\xff", 10));
}

void FrameReaderTest::what_breaks_the_rules_is_a_fault()
{
    QFETCH(bool, isServer);
    QFETCH(QByteArray, bytes);
    for (const int step : {1, 1000}) {
        const Reading reading = read(isServer ? Role::Server : Role::Client, bytes, step, limit);
        QVERIFY(reading.items.isEmpty());
        QVERIFY(reading.fault);
        QCOMPARE(reading.fault->code, CloseCode::ProtocolError);
    }
}

void FrameReaderTest::a_message_of_endless_empty_frames_is_a_fault()
{
    for (const Role sender : {Role::Client, Role::Server}) {
        QByteArray empty = frame(Opcode::Continuation, {}, sender);
        empty[0] = '\0'; // not the last
        const QByteArray begin = QByteArray(empty).replace(0, 1, "\x01");
        const Reading reading = read(sender == Role::Client ? Role::Server : Role::Client,
                                     begin + empty.repeated(200), 1000, limit);
        QVERIFY(reading.items.isEmpty());
        QVERIFY(reading.fault);
    }
}

void FrameReaderTest::some_empty_frames_are_none()
{
    const QByteArray bytes =
        QByteArray("\x01\0", 2) + QByteArray("\0\0", 2).repeated(50) + QByteArray("\x80\x01x", 3);
    const Reading reading = read(Role::Client, bytes.repeated(10), 1000, limit);
    QVERIFY(!reading.fault);
    QCOMPARE(int(reading.items.size()), 10);
    QCOMPARE(reading.items.first().data, QByteArray("x"));
}

void FrameReaderTest::a_server_takes_no_message_that_is_too_large()
{
    const QByteArray whole = frame(Opcode::Text, QByteArray(limit + 1, 'x'), Role::Client);
    QByteArray begin = frame(Opcode::Text, QByteArray(limit, 'x'), Role::Client);
    begin[0] = '\x01';
    const QByteArray inParts = begin + frame(Opcode::Continuation, "x", Role::Client);
    // It is refused by what its frame announces.
    for (const QByteArray& bytes : {whole.left(20), inParts.left(limit + 30)}) {
        const Reading reading = read(Role::Server, bytes, 10000, limit);
        QVERIFY(reading.items.isEmpty());
        QVERIFY(reading.fault);
        QCOMPARE(reading.fault->code, CloseCode::TooLarge);
    }
}

void FrameReaderTest::a_client_leaves_out_what_is_too_large_and_reads_on()
{
    const QByteArray payload = "begin" + QByteArray(limit, 'x') + "end";
    const QByteArray whole = frame(Opcode::Text, payload, Role::Server);
    QByteArray begin = frame(Opcode::Text, payload.left(limit - 10), Role::Server);
    begin[0] = '\x01';
    const QByteArray inParts =
        begin + frame(Opcode::Continuation, payload.mid(limit - 10), Role::Server);
    for (const QByteArray& bytes : {whole, inParts}) {
        const Reading reading =
            read(Role::Client, bytes + frame(Opcode::Text, "next", Role::Server), 10000, limit);
        QVERIFY(!reading.fault);
        QCOMPARE(int(reading.items.size()), 2);
        const FrameReader::Item item = reading.items.first();
        QCOMPARE(item.leftOut, qint64(payload.size()));
        QVERIFY(item.data.startsWith("begin") && item.data.endsWith("end"));
        QVERIFY(item.data.size() < 2000);
        QCOMPARE(reading.items.last().leftOut, qint64(0));
        QCOMPARE(reading.items.last().data, QByteArray("next"));
    }
}

TEST_WITHOUT_WINDOWS(FrameReaderTest)

} // namespace frame_reader_test

#include "FrameReaderTest.moc"
