// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/window/Notice.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QToolButton>
#include <QtTest>

namespace notice_test {

using host::workbench::window::Notice;

namespace {

QString textOf(const Notice& notice)
{
    return notice.findChild<QLabel*>()->text();
}

} // namespace

/// Notice: what a person should know and may put away.
class NoticeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void words_stay_until_they_are_put_away();
    void of_many_words_the_newest_are_in_sight_and_the_others_counted();
    void words_are_no_markup_and_not_endless();
};

void NoticeTest::words_stay_until_they_are_put_away()
{
    Notice notice;
    QVERIFY(notice.isHidden());
    notice.add("One.");
    QVERIFY(!notice.isHidden());
    QCOMPARE(textOf(notice), QString("One."));
    notice.add("Two.");
    QTRY_COMPARE_WITH_TIMEOUT(textOf(notice), QString("One.\nTwo."), patience);
    notice.findChild<QToolButton*>()->click();
    QVERIFY(notice.isHidden());
    notice.add("Three.");
    QTRY_COMPARE_WITH_TIMEOUT(textOf(notice), QString("Three."), patience);
}

void NoticeTest::of_many_words_the_newest_are_in_sight_and_the_others_counted()
{
    Notice notice;
    QElapsedTimer timer;
    timer.start();
    constexpr int count = 10000;
    for (int i = 1; i <= count; ++i)
        notice.add(QString("Number %1.").arg(i));
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    const QString expected = "Earlier messages that are left out here: 9995\nNumber 9996.\n"
                             "Number 9997.\nNumber 9998.\nNumber 9999.\nNumber 10000.";
    QTRY_COMPARE_WITH_TIMEOUT(textOf(notice), expected, patience);
}

void NoticeTest::words_are_no_markup_and_not_endless()
{
    Notice notice;
    QCOMPARE(notice.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    notice.add(QString(100000, 'x') + QString(20000, '\n'));
    QVERIFY(textOf(notice).size() < 2000);
}

TEST_WITH_WINDOWS(NoticeTest)

} // namespace notice_test

#include "NoticeTest.moc"
