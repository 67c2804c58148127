// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "robot/MessageLimit.h"

#include <QElapsedTimer>
#include <QtTest>

namespace message_limit_test {

using robot::MessageLimit;

namespace {

QStringList s_written;

void write(QtMsgType, const QMessageLogContext&, const QString& message)
{
    s_written << message;
}

/// In place of the standard error.
struct Capture
{
    Capture() : previous(qInstallMessageHandler(write)) { s_written.clear(); }
    ~Capture() { qInstallMessageHandler(previous); }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    QtMessageHandler previous;
};

qint64 writtenBytes()
{
    qint64 bytes = 0;
    for (const QString& message : s_written)
        bytes += message.toLocal8Bit().size() + 1;
    return bytes;
}

} // namespace

/// MessageLimit: what a flood of messages leaves on the standard error.
class MessageLimitTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void few_messages_are_written_as_they_are();
    void a_flood_takes_a_megabyte_and_the_rest_is_counted_data();
    void a_flood_takes_a_megabyte_and_the_rest_is_counted();
    void after_a_flood_messages_are_written_again();
};

void MessageLimitTest::few_messages_are_written_as_they_are()
{
    const Capture capture;
    {
        const MessageLimit limit;
        qWarning("one");
        qWarning("two");
    }
    QCOMPARE(s_written, QStringList({"one", "two"}));
}

void MessageLimitTest::a_flood_takes_a_megabyte_and_the_rest_is_counted_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    QTest::newRow("short ones") << 200000 << 20;
    QTest::newRow("long ones") << 100 << 100000;
    QTest::newRow("many long ones") << 2000 << 10000;
}

void MessageLimitTest::a_flood_takes_a_megabyte_and_the_rest_is_counted()
{
    QFETCH(const int, count);
    QFETCH(const int, length);
    const Capture capture;
    const QByteArray message("\xc3\xa4", 2); // two bytes a character
    {
        const MessageLimit limit;
        for (int i = 0; i < count; ++i)
            qWarning().noquote() << QString::fromUtf8(message.repeated(length));
    }
    QVERIFY(writtenBytes() <= MessageLimit::mostBytes);
    const auto whole = s_written.filter(QString::fromUtf8(message)).size();
    QVERIFY(whole > 50);
    if (whole < count)
        QCOMPARE(s_written.last(), QString("%1 messages were left out.").arg(count - whole));
    else
        QVERIFY(!s_written.last().contains("left out"));
}

void MessageLimitTest::after_a_flood_messages_are_written_again()
{
    constexpr std::chrono::milliseconds quiet(200);
    const Capture capture;
    const MessageLimit limit(quiet);
    const auto isFlooded = [] { return !s_written.filter("counted only").isEmpty(); };
    while (!isFlooded()) { // a pause in it, of a machine that is busy, ends it
        s_written.clear();
        for (int i = 0; i < 100000; ++i)
            qWarning("something that a robot sends is wrong");
    }
    s_written.clear();
    QElapsedTimer pause;
    pause.start();
    QTRY_VERIFY(pause.hasExpired(quiet.count() + 10));
    qWarning("news");
    QCOMPARE(s_written.size(), 2);
    QVERIFY2(s_written.first().endsWith("messages were left out."), qPrintable(s_written.first()));
    QCOMPARE(s_written.last(), QString("news"));
}

TEST_WITHOUT_WINDOWS(MessageLimitTest)

} // namespace message_limit_test

#include "MessageLimitTest.moc"
