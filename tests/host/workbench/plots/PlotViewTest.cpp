// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "MoveMouse.h"
#include "TestCase.h"

#include "host/workbench/plots/PlotView.h"
#include "host/workbench/preferences/Appearance.h"
#include "host/workbench/preferences/Contrast.h"

#include <QApplication>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

#include <cmath>

namespace plot_view_test {

using namespace host::workbench::plots;
using namespace host::workbench::preferences;
using namespace std::chrono_literals;

namespace {

constexpr double start = 1e9;

struct ShownPlot
{
    ShownPlot()
    {
        view.resize(400, 200);
        for (int i = 0; i <= 100; ++i)
            series.append(start + i, i);
        view.setLines({{&series, 0, false}});
        view.refresh(start + 100);
    }

    QCPRange times() const { return view.xAxis->range(); }
    QCPRange values() const { return view.yAxis->range(); }

    void turnWheel()
    {
        const QPointF middle = view.axisRect()->center();
        QWheelEvent event(middle, middle, QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }

    Series series;
    PlotView view;
};

} // namespace

/// PlotView: what of the lines is in sight.
class PlotViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_present_is_at_its_end();
    void the_values_in_sight_fill_the_height();
    void a_constant_is_in_the_middle();
    void a_gap_is_not_crossed_by_a_line();
    void paused_it_stays_where_it_is();
    void keys_look_back_while_it_is_paused();
    void drag_and_wheel_look_back_while_it_is_paused();
    void lines_are_seen_in_every_appearance_data();
    void lines_are_seen_in_every_appearance();
    void few_values_are_marked();
    void it_is_painted_no_oftener_than_can_be_seen();
    void it_is_drawn_no_earlier_than_it_is_shown();
};

void PlotViewTest::the_present_is_at_its_end()
{
    ShownPlot plot;
    QCOMPARE(plot.times().upper, start + 100);
    QCOMPARE(plot.times().size(), 60.0);
    plot.view.setSpan(10s);
    plot.view.refresh(start + 105);
    QCOMPARE(plot.times(), QCPRange(start + 95, start + 105));
    QCOMPARE(plot.view.graph(0)->data().data(), plot.series.data().data()); // not copied
}

void PlotViewTest::the_values_in_sight_fill_the_height()
{
    ShownPlot plot;
    // With the point before them, from which a line comes in.
    QVERIFY(plot.values().lower > 30 && plot.values().lower < 40);
    QVERIFY(plot.values().upper > 100 && plot.values().upper < 110);
    plot.series.append(start + 101, std::nan(""));
    plot.series.append(start + 102, -500);
    plot.view.refresh(start + 102);
    QVERIFY(plot.values().lower < -500 && plot.values().lower > -600);
}

void PlotViewTest::a_constant_is_in_the_middle()
{
    ShownPlot plot;
    plot.view.setSpan(10s);
    for (int i = 0; i < 30; ++i)
        plot.series.append(start + 101 + i, 7);
    plot.view.refresh(start + 130);
    QCOMPARE(plot.values().center(), 7.0);
    QVERIFY(plot.values().size() > 0);
}

/// Even where QCustomPlot takes the points of a pixel together.
void PlotViewTest::a_gap_is_not_crossed_by_a_line()
{
    Series series;
    const auto append = [&series](double from) {
        for (int i = 0; i < 30 * 60; ++i)
            series.append(start + from + i / 30.0, (i % 2) - 0.5);
    };
    append(0);
    append(1800);
    PlotView view;
    view.resize(600, 300);
    view.setLines({{&series, 0, false}});
    view.setSpan(1h);
    view.refresh(start + 3000);
    const QImage image = view.grab().toImage();
    const QRgb colour = PlotView::colour(0, view.palette()).rgb();
    const auto isLineAt = [&](double time) {
        const int x = static_cast<int>(view.xAxis->coordToPixel(start + time));
        const QRect plot = view.axisRect()->rect();
        for (int y = plot.top() + 1; y < plot.bottom(); ++y) {
            if (image.pixel(x, y) == colour)
                return true;
        }
        return false;
    };
    QVERIFY(isLineAt(30));
    QVERIFY(isLineAt(1830));
    for (const double time : {200.0, 600.0, 930.0, 1400.0, 1700.0})
        QVERIFY(!isLineAt(time));
}

void PlotViewTest::paused_it_stays_where_it_is()
{
    ShownPlot plot;
    plot.view.setLive(false);
    plot.series.append(start + 101, 1000);
    plot.view.refresh(start + 110);
    QCOMPARE(plot.times().upper, start + 100);
    plot.view.setSpan(10s); // of what ends there
    QCOMPARE(plot.times(), QCPRange(start + 90, start + 100));
    plot.view.setLive(true);
    plot.view.refresh(start + 110);
    QCOMPARE(plot.times(), QCPRange(start + 100, start + 110));
}

void PlotViewTest::keys_look_back_while_it_is_paused()
{
    ShownPlot plot;
    for (const auto key : {Qt::Key_Left, Qt::Key_Plus, Qt::Key_PageUp})
        QTest::keyClick(&plot.view, key);
    QCOMPARE(plot.times(), QCPRange(start + 40, start + 100));
    plot.view.setLive(false);
    QTest::keyClick(&plot.view, Qt::Key_Left);
    QCOMPARE(plot.times(), QCPRange(start + 34, start + 94));
    QTest::keyClick(&plot.view, Qt::Key_Right);
    QTest::keyClick(&plot.view, Qt::Key_PageUp);
    QCOMPARE(plot.times(), QCPRange(start - 20, start + 40));
    QVERIFY(plot.values().upper < 50); // which those in sight fill
    QTest::keyClick(&plot.view, Qt::Key_PageDown);
    QTest::keyClick(&plot.view, Qt::Key_Plus);
    QCOMPARE(plot.times().size(), 48.0);
    QCOMPARE(plot.times().center(), start + 70);
    QTest::keyClick(&plot.view, Qt::Key_Minus);
    QCOMPARE(plot.times().size(), 60.0);
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&plot.view, Qt::Key_Plus);
    QVERIFY(plot.times().size() > 0.05);
    for (int i = 0; i < 200; ++i)
        QTest::keyClick(&plot.view, Qt::Key_Minus);
    QVERIFY(plot.times().size() < 100000);
}

void PlotViewTest::drag_and_wheel_look_back_while_it_is_paused()
{
    ShownPlot plot;
    const QPoint middle = plot.view.axisRect()->center();
    const auto drag = [&] {
        QTest::mousePress(&plot.view, Qt::LeftButton, {}, middle);
        moveMouse(plot.view, middle + QPoint(20, 0), Qt::LeftButton);
        moveMouse(plot.view, middle + QPoint(60, 30), Qt::LeftButton);
        QTest::mouseRelease(&plot.view, Qt::LeftButton, {}, middle + QPoint(60, 30));
    };
    drag();
    plot.turnWheel();
    QCOMPARE(plot.times(), QCPRange(start + 40, start + 100));
    plot.view.setLive(false);
    drag();
    QVERIFY(plot.times().upper < start + 99);
    QVERIFY(std::abs(plot.times().size() - 60) < 1e-3);
    plot.turnWheel();
    QVERIFY(plot.times().size() < 59);
}

void PlotViewTest::lines_are_seen_in_every_appearance_data()
{
    QTest::addColumn<QString>("code");
    for (const QString& code : Appearance::codes())
        QTest::addRow("%s", qPrintable(code)) << code;
}

void PlotViewTest::lines_are_seen_in_every_appearance()
{
    QFETCH(const QString, code);
    ShownPlot plot;
    Appearance appearance;
    appearance.use(code);
    QCoreApplication::processEvents();
    const QPalette palette = QApplication::palette();
    const QColor ground = palette.color(QPalette::Base);
    QSet<QRgb> colours;
    for (int i = 0; i < PlotView::colourCount; ++i) {
        const QColor colour = PlotView::colour(i, palette);
        QVERIFY(contrast(colour, ground) >= contrastOfControls);
        colours.insert(colour.rgb());
    }
    QCOMPARE(int(colours.size()), PlotView::colourCount);
    QCOMPARE(plot.view.graph(0)->pen().color(), PlotView::colour(0, palette));
    QVERIFY(contrast(plot.view.xAxis->tickLabelColor(), ground) >= contrastOfText);
    const QImage image = plot.view.grab().toImage();
    QCOMPARE(image.pixelColor(2, 2).rgb(), ground.rgb());
}

void PlotViewTest::few_values_are_marked()
{
    ShownPlot plot;
    QVERIFY(plot.view.graph(0)->scatterStyle().isNone());
    plot.view.setSpan(10s);
    plot.view.refresh(start + 100);
    QVERIFY(!plot.view.graph(0)->scatterStyle().isNone());
}

void PlotViewTest::it_is_painted_no_oftener_than_can_be_seen()
{
    ShownPlot plot;
    plot.view.setSpan(10s);
    QCOMPARE(plot.view.refreshInterval(), 40ms);
    plot.view.setSpan(1h);
    QCOMPARE(plot.view.refreshInterval(), 1000ms);
    plot.view.setSpan(1min);
    QCOMPARE(plot.view.refreshInterval(), 75ms); // half the time of one of 400 pixels
}

void PlotViewTest::it_is_drawn_no_earlier_than_it_is_shown()
{
    PlotView view;
    QCoreApplication::processEvents(); // QCustomPlot draws once by itself
    int replots = 0;
    connect(&view, &QCustomPlot::afterReplot, this, [&replots] { ++replots; });
    view.setLines({});
    QCoreApplication::processEvents();
    QCOMPARE(replots, 0);
    view.show();
    QTRY_VERIFY(replots > 0);
    const int before = replots;
    QPalette palette = view.palette();
    palette.setColor(QPalette::Base, Qt::darkGreen);
    view.setPalette(palette);
    QTRY_VERIFY(replots > before);
}

TEST_WITH_WINDOWS(PlotViewTest)

} // namespace plot_view_test

#include "PlotViewTest.moc"
