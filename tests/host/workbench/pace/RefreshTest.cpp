// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/pace/Refresh.h"

#include <QPaintEvent>
#include <QWidget>
#include <QtTest>

#include <memory>

namespace refresh_test {

using host::workbench::pace::Refresh;
using namespace std::chrono_literals;

/// What is shown when there is much to show: each by itself, in turn.
class RefreshTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_comes_before_it_is_shown_is_shown_with_it();
    void it_is_shown_after_the_pause();
    void it_may_ask_for_another_one();
    void those_that_wait_are_shown_in_their_order();
    void each_is_painted_by_itself_with_other_events_in_between();
    void what_is_cancelled_is_not_shown();
    void what_is_gone_is_not_shown();
};

void RefreshTest::what_comes_before_it_is_shown_is_shown_with_it()
{
    int shown = 0;
    Refresh refresh(*this, [&] { ++shown; });
    refresh.request(0ms);
    refresh.request(0ms);
    QCOMPARE(shown, 0);
    QTRY_COMPARE_WITH_TIMEOUT(shown, 1, patience);
    refresh.request(0ms);
    QTRY_COMPARE_WITH_TIMEOUT(shown, 2, patience);
}

void RefreshTest::it_is_shown_after_the_pause()
{
    QElapsedTimer time;
    qint64 after = -1;
    Refresh refresh(*this, [&] { after = time.elapsed(); });
    time.start();
    refresh.request(100ms);
    QTRY_VERIFY_WITH_TIMEOUT(after >= 0, patience);
    QVERIFY2(after >= 94, qPrintable(QString::number(after))); // timers may be early by a twentieth
}

void RefreshTest::it_may_ask_for_another_one()
{
    int shown = 0;
    std::unique_ptr<Refresh> refresh;
    refresh = std::make_unique<Refresh>(*this, [&] {
        if (++shown < 3)
            refresh->request(0ms);
    });
    refresh->request(0ms);
    QTRY_COMPARE_WITH_TIMEOUT(shown, 3, patience);
}

void RefreshTest::those_that_wait_are_shown_in_their_order()
{
    QString order;
    Refresh a(*this, [&] { order += 'a'; });
    Refresh b(*this, [&] { order += 'b'; });
    Refresh c(*this, [&] { order += 'c'; });
    b.request(0ms);
    c.request(0ms);
    a.request(0ms);
    QTRY_COMPARE_WITH_TIMEOUT(order, QString("bca"), patience);
}

namespace {

/// Tells what happens to it.
class Part : public QWidget
{
public:
    Part(QWidget* window, const QString& name, QString& order)
        : QWidget(window),
          m_name(name),
          m_order(order)
    {
        resize(10, 10);
        move(10 * static_cast<int>(window->children().size()), 0);
    }

    Refresh refresh{*this, [this] {
                        m_order += m_name;
                        update();
                        QMetaObject::invokeMethod(
                            this, [this] { m_order += '.'; }, Qt::QueuedConnection);
                    }};

protected:
    void paintEvent(QPaintEvent* /*event*/) override { m_order += m_name.toUpper(); }

private:
    QString m_name;
    QString& m_order;
};

} // namespace

void RefreshTest::each_is_painted_by_itself_with_other_events_in_between()
{
    QString order;
    QWidget window;
    Part a(&window, "a", order);
    Part b(&window, "b", order);
    Part c(&window, "c", order);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    order.clear();
    for (Part* part : {&a, &b, &c})
        part->refresh.request(0ms);
    QTRY_COMPARE_WITH_TIMEOUT(order, QString("aA.bB.cC."), patience);
}

void RefreshTest::what_is_cancelled_is_not_shown()
{
    QString order;
    Refresh late(*this, [&] { order += 'l'; });
    Refresh waiting(*this, [&] { order += 'w'; });
    Refresh first(*this, [&] {
        order += '1';
        late.cancel();
        waiting.cancel();
    });
    Refresh last(*this, [&] { order += '2'; });
    first.request(0ms);
    waiting.request(0ms);
    last.request(0ms);
    late.request(1h);
    QTRY_COMPARE_WITH_TIMEOUT(order, QString("12"), patience);
    waiting.request(0ms);
    QTRY_COMPARE_WITH_TIMEOUT(order, QString("12w"), patience);
}

void RefreshTest::what_is_gone_is_not_shown()
{
    QString order;
    auto gone = std::make_unique<Refresh>(*this, [&] { order += 'g'; });
    Refresh first(*this, [&] {
        order += '1';
        gone.reset();
    });
    Refresh last(*this, [&] { order += '2'; });
    first.request(0ms);
    gone->request(0ms);
    last.request(0ms);
    QTRY_COMPARE_WITH_TIMEOUT(order, QString("12"), patience);
}

TEST_WITH_WINDOWS(RefreshTest)

} // namespace refresh_test

#include "RefreshTest.moc"
