// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/plots/CustomPlot.h"
#include "host/workbench/plots/Series.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace series_test {

using host::workbench::plots::Series;

namespace {

constexpr double start = 1e9;

/// "0:1 1:- …", times since the start.
QString points(const Series& series)
{
    QStringList words;
    for (auto point = series.data()->constBegin(); point != series.data()->constEnd(); ++point)
        words << QString("%1:%2")
                     .arg(point->key - start)
                     .arg(std::isnan(point->value) ? "-" : QString::number(point->value));
    return words.join(' ');
}

} // namespace

/// Series: what is kept of a quantity, and where its line has gaps.
class SeriesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_keeps_the_newest_of_an_hour_at_30_Hz();
    void nothing_for_a_while_is_a_gap();
    void a_slow_quantity_has_no_gaps();
    void a_line_that_was_broken_off_goes_on_after_a_gap();
    void what_is_no_number_ends_the_line();
    void an_old_value_is_not_the_current_one();
    void cleared_it_begins_anew();
};

void SeriesTest::it_keeps_the_newest_of_an_hour_at_30_Hz()
{
    Series series;
    constexpr int count = Series::mostPoints + 1000;
    for (int i = 0; i < count; ++i)
        series.append(start + i / 30.0, i);
    QCOMPARE(series.data()->size(), Series::mostPoints);
    QCOMPARE(series.data()->at(0)->value, 1000.0);
    QCOMPARE((series.data()->constEnd() - 1)->value, double(count - 1));
}

void SeriesTest::nothing_for_a_while_is_a_gap()
{
    Series series;
    for (const double time : {0.0, 1.0, 1.5, 11.5, 12.0})
        series.append(start + time, time);
    QCOMPARE(points(series), QString("0:0 1:1 1.5:1.5 6.5:- 11.5:11.5 12:12"));
}

void SeriesTest::a_slow_quantity_has_no_gaps()
{
    Series series;
    for (const double time : {0.0, 5.0, 10.0, 24.0, 29.0, 45.0})
        series.append(start + time, 1);
    // The first pause may be one; after that, only what is long beside the one before.
    QCOMPARE(points(series), QString("0:1 2.5:- 5:1 10:1 24:1 29:1 37:- 45:1"));
}

void SeriesTest::a_line_that_was_broken_off_goes_on_after_a_gap()
{
    Series series;
    series.append(start, 1);
    series.breakOff();
    series.breakOff();
    QCOMPARE(points(series), QString("0:1"));
    series.append(start + 1, 2);
    series.append(start + 2, 3);
    QCOMPARE(points(series), QString("0:1 0.5:- 1:2 2:3"));
}

void SeriesTest::what_is_no_number_ends_the_line()
{
    Series series;
    series.append(start, 1);
    series.append(start + 1, std::numeric_limits<double>::quiet_NaN());
    series.append(start + 2, std::numeric_limits<double>::infinity());
    QCOMPARE(series.current(start + 2), std::optional<double>());
    series.append(start + 3, 4);
    QCOMPARE(points(series), QString("0:1 1.5:- 3:4"));
}

void SeriesTest::an_old_value_is_not_the_current_one()
{
    Series series;
    QCOMPARE(series.current(start), std::optional<double>());
    series.append(start, 1);
    series.append(start + 0.1, 7);
    QCOMPARE(series.current(start + 2), std::optional<double>(7));
    QCOMPARE(series.current(start + 3), std::optional<double>());
    series.breakOff();
    QCOMPARE(series.current(start + 0.2), std::optional<double>());
}

void SeriesTest::cleared_it_begins_anew()
{
    Series series;
    series.append(start, 1);
    series.clear();
    QCOMPARE(points(series), QString());
    QCOMPARE(series.current(start), std::optional<double>());
    series.append(start + 1, 2);
    QCOMPARE(points(series), QString("1:2"));
}

TEST_WITHOUT_WINDOWS(SeriesTest)

} // namespace series_test

#include "SeriesTest.moc"
