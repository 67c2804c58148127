// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"

#include "host/workbench/plots/PlotView.h"

#include <QImage>

#include <cmath>
#include <vector>

// Ten lines of an hour at 30 values a second, in a dock of a large window. Each repaint comes after
// one new value of each line, as with a robot, and is beside that of an empty QCustomPlot whose
// time goes on as well.

using namespace host::workbench::plots;

namespace {

const QSize size(900, 300);
const double start = 1.7e9;
const double period = 1.0 / 30;

/// A slow wave with noise, which is the most that a pixel can have to draw.
double valueAt(int index, int line)
{
    return line + std::sin(index * 1e-3 * (line + 1)) +
           (index * 7919 + line * 104729) % 1000 * 2e-4;
}

struct Hour
{
    Hour()
    {
        std::vector<PlotView::Shown> shown;
        for (Series& line : lines)
            shown.push_back({&line, static_cast<int>(shown.size()), false});
        for (int i = 0; i < Series::mostPoints; ++i)
            append();
        view.resize(size);
        view.setLines(shown);
    }

    void append()
    {
        for (int line = 0; line < PlotView::colourCount; ++line)
            lines[static_cast<std::size_t>(line)].append(now(), valueAt(count, line));
        ++count;
    }

    double now() const { return start + count * period; }

    std::vector<Series> lines = std::vector<Series>(PlotView::colourCount);
    int count = 0;
    PlotView view;
};

void paintLines(benchmark::State& state, std::chrono::seconds span)
{
    Hour hour;
    hour.view.setSpan(span);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        hour.append();
        hour.view.refresh(hour.now());
        hour.view.render(&picture);
    });
}

void paintEmpty(benchmark::State& state)
{
    QCustomPlot plot;
    plot.resize(size);
    double now = start;
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        now += period;
        plot.xAxis->setRange(now, 3600, Qt::AlignRight);
        plot.replot(QCustomPlot::rpQueuedRefresh);
        plot.render(&picture);
    });
}

} // namespace

void addPlotView(Ratios& ratios)
{
    using namespace std::chrono_literals;
    const char* const hour = "plot: ten lines, an hour in sight";
    const char* const minute = "plot: ten lines, a minute in sight";
    const char* const empty = "plot: an empty QCustomPlot";
    benchmark::RegisterBenchmark(hour, paintLines, 1h);
    benchmark::RegisterBenchmark(minute, paintLines, 1min);
    benchmark::RegisterBenchmark(empty, paintEmpty);
    ratios.compare(hour, empty, 0);
    ratios.compare(minute, empty, 0);
}
