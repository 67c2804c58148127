// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/log/Log.h"

#include "TestCase.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QtTest>

namespace log_test {

using olm::qt::log::Log;

class LogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_first_text_takes_the_first_line();
    void an_empty_line_is_a_line();
    void every_line_of_a_text_is_a_line_of_the_log();
    void a_text_stays_as_it_is();
    void the_level_changes_nothing();
    void the_oldest_lines_go_when_the_log_is_full();
    void the_oldest_lines_go_when_they_are_too_long();
    void a_full_log_is_seldom_laid_out_anew();
    void a_cleared_log_starts_anew();
    void a_log_takes_no_notes_for_undoing();
};

namespace {

const int kept = 5000;
const int mostLines = 5499;
const int mostCharacters = 500000;

/// What took a day to come: numbered lines, each with @p text.
void fill(Log& log, int lines, const QString& text = QString())
{
    log.postLog("0", 255);
    QStringList others;
    for (int i = 1; i < lines; ++i)
        others.append(QString::number(i) + text);
    QTextCursor cursor(&log);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText('\n' + others.join('\n'));
    QCOMPARE(log.blockCount(), lines);
}

} // namespace

void LogTest::the_first_text_takes_the_first_line()
{
    Log log;
    QVERIFY(log.isEmpty());
    log.postLog("one", 255);
    QCOMPARE(log.toPlainText(), QString("one"));
    log.postLog("two", 255);
    QCOMPARE(log.toPlainText(), QString("one\ntwo"));
    QCOMPARE(log.blockCount(), 2);
}

void LogTest::an_empty_line_is_a_line()
{
    Log log;
    log.postEmptyLine();
    log.postLog("one", 255);
    log.postEmptyLine();
    log.postEmptyLine();
    log.postLog(QString(), 255);
    log.postLog("two", 255);
    QCOMPARE(log.toPlainText(), QString("\none\n\n\n\ntwo"));

    Log second;
    second.postLog("", 255);
    second.postLog("", 255);
    QCOMPARE(second.blockCount(), 2);
}

void LogTest::every_line_of_a_text_is_a_line_of_the_log()
{
    Log log;
    log.postLog("one\ntwo\n\nthree", 255);
    log.postLog("four\n", 255);
    log.postLog("five", 255);
    QCOMPARE(log.toPlainText(), QString("one\ntwo\n\nthree\nfour\n\nfive"));
    QCOMPARE(log.blockCount(), 7);
    QCOMPARE(log.lastBlock().text(), QString("five"));
}

void LogTest::a_text_stays_as_it_is()
{
    Log log;
    const QString text = QString::fromUtf8("<b>5 & 6</b>\t %1 röhre  ");
    log.postLog(text, 255);
    QCOMPARE(log.toPlainText(), text);
}

void LogTest::the_level_changes_nothing()
{
    Log log;
    for (int level : {0, 1, 254, 255, -1, 256})
        log.postLog("same", level);
    QCOMPARE(log.blockCount(), 6);
    for (QTextBlock block = log.begin(); block.isValid(); block = block.next()) {
        QCOMPARE(block.text(), QString("same"));
        QCOMPARE(block.blockFormat(), log.begin().blockFormat());
        QCOMPARE(block.charFormat(), log.begin().charFormat());
    }
}

void LogTest::the_oldest_lines_go_when_the_log_is_full()
{
    Log log;
    fill(log, mostLines);
    log.postLog("last but one", 255);
    QTRY_COMPARE(log.blockCount(), kept);
    QCOMPARE(log.firstBlock().text(), QString::number(mostLines + 1 - kept));
    QCOMPARE(log.lastBlock().text(), QString("last but one"));
    log.postLog("last", 255);
    QCOMPARE(log.blockCount(), kept + 1);
    QVERIFY(!log.isUndoAvailable());
}

void LogTest::the_oldest_lines_go_when_they_are_too_long()
{
    Log log;
    fill(log, 300, QString(2000, 'x'));
    log.postLog("last", 255);
    QTRY_VERIFY(log.characterCount() <= mostCharacters);
    QVERIFY(log.characterCount() > mostCharacters * 9 / 10);
    QCOMPARE(log.lastBlock().text(), QString("last"));
}

void LogTest::a_full_log_is_seldom_laid_out_anew()
{
    Log log;
    fill(log, mostLines - 10);
    log.documentLayout(); // made when first asked for, as a view does
    int updates = 0;
    int removals = 0;
    connect(&log, &QTextDocument::contentsChange, this, [&](int, int removed, int added) {
        updates += added > 0 ? 1 : 0;
        removals += removed > 1 ? 1 : 0;
    });
    while (updates < 10) {
        const int before = updates;
        for (int i = 0; i < 10; ++i)
            log.postLog(QString::number(i), 255);
        QTRY_VERIFY(updates > before);
    }
    QTRY_COMPARE(removals, 1);
    QVERIFY(log.blockCount() < mostLines);
}

void LogTest::a_cleared_log_starts_anew()
{
    Log log;
    log.postLog("old", 255);
    QTextDocument& document = log; // as a view clears it
    document.clear();
    QVERIFY(log.isEmpty());
    QCOMPARE(log.blockCount(), 1);
    log.postLog("new", 255);
    QCOMPARE(log.toPlainText(), QString("new"));
    log.postEmptyLine();
    QCOMPARE(log.toPlainText(), QString("new\n"));
}

void LogTest::a_log_takes_no_notes_for_undoing()
{
    Log log;
    log.postLog("one", 255);
    QVERIFY(!log.isUndoRedoEnabled());
    QVERIFY(!log.isUndoAvailable());
    log.clear();
    QVERIFY(!log.isUndoRedoEnabled());
}

TEST_WITH_WINDOWS(LogTest)

} // namespace log_test

#include "LogTest.moc"
