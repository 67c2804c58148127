// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "olm/qt/log/Log.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTimer>
#include <QtTest>

namespace log_flood_test {

using olm::qt::log::Log;

/// More lines, and longer ones, than a window can show: what of them is shown, and how often.
class LogFloodTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_few_lines_are_there_at_once_and_shown_in_two_updates();
    void a_flood_is_shown_in_no_more_than_25_updates_a_second();
    void what_a_flood_leaves_out_is_counted();
    void after_a_flood_every_line_is_shown_again();
    void a_long_line_is_cut_and_tells_by_how_much();
    void long_lines_take_the_room_of_many();
    void a_text_of_many_lines_is_a_flood_data();
    void a_text_of_many_lines_is_a_flood();
    void clearing_forgets_what_was_not_shown();
    void a_log_may_go_in_the_middle_of_a_flood();
};

namespace {

const int flood = 10000;
const QString newest("line 9999");

QStringList linesOf(const Log& log)
{
    return log.toPlainText().split('\n');
}

/// The number in a line that tells of lines left out, else 0.
int leftOut(const QString& line)
{
    static const QRegularExpression words("^… (\\d+) lines? left out$");
    return words.match(line).captured(1).toInt();
}

/// The lines of the log and those that it counted.
int shownOrCounted(const Log& log)
{
    int number = 0;
    for (const QString& line : linesOf(log)) {
        const int missing = leftOut(line);
        number += missing > 0 ? missing : 1;
    }
    return number;
}

/// When a log has nothing left to show and room for a whole start again.
bool isIdle(const Log& log)
{
    return !log.findChild<QTimer*>()->isActive();
}

/// Posts lines numbered from 0, some at a time, while the log shows them.
void postFlood(Log& log)
{
    for (int i = 0; i < flood; ++i) {
        log.postLog(QString("line %1").arg(i), 255);
        if (i % 20 == 0)
            QCoreApplication::processEvents();
    }
}

/// Counts what a layout hears of lines that came.
class Updates
{
public:
    explicit Updates(Log& log)
    {
        log.documentLayout(); // made when first asked for, as a view does
        QObject::connect(&log, &QTextDocument::contentsChange, &m_context,
                         [this](int, int, int added) { m_count += added > 0 ? 1 : 0; });
    }

    int count() const { return m_count; }

private:
    QObject m_context;
    int m_count = 0;
};

} // namespace

void LogFloodTest::a_few_lines_are_there_at_once_and_shown_in_two_updates()
{
    Log log;
    const Updates updates(log);
    QStringList expected;
    for (int i = 0; i < 500; ++i) {
        expected.append(QString("line %1").arg(i));
        log.postLog(expected.last(), 255);
        QCOMPARE(log.blockCount(), i + 1);
    }
    QCOMPARE(log.toPlainText(), expected.join('\n'));
    QCOMPARE(updates.count(), 1);
    QTRY_COMPARE(updates.count(), 2);
    QTRY_VERIFY(isIdle(log));
    QCOMPARE(updates.count(), 2);
    QCOMPARE(log.toPlainText(), expected.join('\n'));
}

void LogFloodTest::a_flood_is_shown_in_no_more_than_25_updates_a_second()
{
    Log log;
    const Updates updates(log);
    QElapsedTimer timer;
    timer.start();
    postFlood(log);
    QTRY_COMPARE(log.lastBlock().text(), newest);
    QVERIFY(updates.count() >= 2);
    // The clock of a coarse timer may be 5 % ahead.
    const qint64 most = 2 + timer.elapsed() / 38;
    QVERIFY2(updates.count() <= most, qPrintable(QString::number(updates.count())));
    QVERIFY2(updates.count() < flood / 20, qPrintable(QString::number(updates.count())));
}

void LogFloodTest::what_a_flood_leaves_out_is_counted()
{
    Log log;
    postFlood(log);
    QTRY_COMPARE(log.lastBlock().text(), newest);
    QVERIFY2(log.blockCount() < flood / 2, qPrintable(QString::number(log.blockCount())));
    QCOMPARE(shownOrCounted(log), flood);

    // Each count stands where the lines are missing.
    int next = 0;
    for (const QString& line : linesOf(log)) {
        if (const int missing = leftOut(line)) {
            next += missing;
            continue;
        }
        QCOMPARE(line, QString("line %1").arg(next));
        ++next;
    }
}

void LogFloodTest::after_a_flood_every_line_is_shown_again()
{
    Log log;
    postFlood(log);
    QTRY_VERIFY(isIdle(log));
    const int before = log.blockCount();
    for (int i = 0; i < 500; ++i)
        log.postLog("after", 255);
    QCOMPARE(log.blockCount(), before + 500);
}

void LogFloodTest::a_long_line_is_cut_and_tells_by_how_much()
{
    Log log;
    const QString longest(2000, 'x');
    log.postLog(longest, 255);
    log.postLog(longest + 'y', 255);
    log.postLog("short\n" + QString(100000, 'z') + "\nshort", 255);
    QCOMPARE(linesOf(log),
             (QStringList{
                 longest, QString(1900, 'x') + QString::fromUtf8("… 101 more characters"), "short",
                 QString(1900, 'z') + QString::fromUtf8("… 98100 more characters"), "short"}));
}

void LogFloodTest::long_lines_take_the_room_of_many()
{
    Log log;
    for (int i = 0; i < 1000; ++i)
        log.postLog(QString(100000, 'x'), 255);
    log.postLog("last", 255);
    QTRY_COMPARE(log.lastBlock().text(), QString("last"));
    QVERIFY2(log.blockCount() < 100, qPrintable(QString::number(log.blockCount())));
    QCOMPARE(shownOrCounted(log), 1001);
}

void LogFloodTest::a_text_of_many_lines_is_a_flood_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("line feed") << "\n";
    QTest::newRow("carriage return") << "\r";
    QTest::newRow("both") << "\r\n";
    QTest::newRow("paragraph separator") << QString(QChar::ParagraphSeparator);
    QTest::newRow("frame begin") << QString(QChar(0xfdd0));
    QTest::newRow("frame end") << QString(QChar(0xfdd1));
}

void LogFloodTest::a_text_of_many_lines_is_a_flood()
{
    QFETCH(QString, end);
    Log log;
    log.postLog("first" + end.repeated(20000) + "last", 255);
    log.postLog("another" + end + "end", 255);
    QTRY_COMPARE(log.lastBlock().text(), QString("end"));
    QVERIFY2(log.blockCount() < 1500, qPrintable(QString::number(log.blockCount())));
    QCOMPARE(log.firstBlock().text(), QString("first"));
    QCOMPARE(linesOf(log).mid(log.blockCount() - 3), (QStringList{"last", "another", "end"}));
    QCOMPARE(shownOrCounted(log), 20003);
}

void LogFloodTest::clearing_forgets_what_was_not_shown()
{
    Log log;
    log.postLog(QString(20000, '\n'), 255);
    log.clear();
    log.postLog("new", 255);
    QCOMPARE(log.toPlainText(), QString("new"));
    QTRY_VERIFY(isIdle(log));
    QCOMPARE(log.toPlainText(), QString("new"));
}

void LogFloodTest::a_log_may_go_in_the_middle_of_a_flood()
{
    for (const int lines : {1, 2, 20000}) {
        Log log;
        for (int i = 0; i < lines; ++i)
            log.postLog("line", 255);
    }
    QCoreApplication::processEvents();
}

TEST_WITH_WINDOWS(LogFloodTest)

} // namespace log_flood_test

#include "LogFloodTest.moc"
