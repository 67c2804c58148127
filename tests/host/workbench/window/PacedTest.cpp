// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/window/Paced.h"

#include <QElapsedTimer>
#include <QtTest>

namespace paced_test {

using host::workbench::window::Paced;

/// Paced: how often something is shown.
class PacedTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_single_change_is_shown_at_once();
    void a_flood_is_shown_25_times_a_second_and_its_end_as_well();
};

void PacedTest::a_single_change_is_shown_at_once()
{
    int shows = 0;
    Paced paced([&shows] { ++shows; });
    QCOMPARE(shows, 0);
    paced.request();
    QCOMPARE(shows, 1);
}

void PacedTest::a_flood_is_shown_25_times_a_second_and_its_end_as_well()
{
    int shows = 0;
    int newest = 0;
    int shown = 0;
    Paced paced([&] {
        ++shows;
        shown = newest;
    });
    QElapsedTimer timer;
    timer.start();
    while (shows < 10) {
        ++newest;
        paced.request();
        QCoreApplication::processEvents();
    }
    QVERIFY2(timer.elapsed() >= 9 * 30, qPrintable(QString::number(timer.elapsed()))); // nearly 40
    ++newest;
    paced.request();
    QTRY_COMPARE_WITH_TIMEOUT(shown, newest, patience);
}

TEST_WITHOUT_WINDOWS(PacedTest)

} // namespace paced_test

#include "PacedTest.moc"
