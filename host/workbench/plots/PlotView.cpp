// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/PlotView.h"

#include "host/workbench/preferences/Contrast.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace host::workbench::plots {

namespace {

using namespace std::chrono_literals;

constexpr auto shortestInterval = 40ms; // 25 replots a second
constexpr auto longestInterval = 1000ms;
constexpr double usualSpan = 60; // seconds
constexpr double shortestSpan = 0.1;
constexpr double longestSpan = 24 * 3600;
constexpr double moveStep = 0.1; // of what is in sight
constexpr double zoomStep = 1.25;
constexpr double margin = 0.05; // above and below the values
constexpr int fewPoints = 60;   // each of which is marked
constexpr double markSize = 4;
constexpr int manyPoints = 1000; // of a line: Qt draws it quickly only if it is a pixel wide

/// Far apart for most eyes, too.
constexpr QRgb colours[PlotView::colourCount] = {
    0xff1f77b4, 0xffff7f0e, 0xff2ca02c, 0xffd62728, 0xff9467bd,
    0xff8c564b, 0xffe377c2, 0xff7f7f7f, 0xffbcbd22, 0xff17becf,
};

} // namespace

PlotView::PlotView(QWidget* parent) : QCustomPlot(parent), m_span(usualSpan)
{
    setFocusPolicy(Qt::StrongFocus);
    setNotAntialiasedElements(QCP::aePlottables); // full colours, and many points in no time
    const QSharedPointer<QCPAxisTickerDateTime> ticker(new QCPAxisTickerDateTime);
    ticker->setDateTimeFormat(QStringLiteral("HH:mm:ss"));
    ticker->setTickCount(4); // about
    xAxis->setTicker(ticker);
    axisRect()->setRangeDrag(Qt::Horizontal);
    axisRect()->setRangeZoom(Qt::Horizontal);
    connect(xAxis, QOverload<const QCPRange&>::of(&QCPAxis::rangeChanged), this,
            &PlotView::onMoved);
    takeAppearance();
}

void PlotView::setLines(const std::vector<Shown>& lines)
{
    clearGraphs();
    m_colours.clear();
    for (const Shown& line : lines) {
        QCPGraph* const graph = addGraph();
        graph->setData(line.series->data());
        m_colours.push_back(line.colour);
        graph->setLineStyle(line.isStepped ? QCPGraph::lsStepLeft : QCPGraph::lsLine);
    }
    takeAppearance();
}

void PlotView::setWords(const QString& words)
{
    m_words = words;
    update();
}

void PlotView::setSpan(std::chrono::seconds span)
{
    m_span = static_cast<double>(span.count());
    if (!m_isLive)
        xAxis->setRange(xAxis->range().upper, m_span, Qt::AlignRight);
}

void PlotView::setLive(bool isLive)
{
    m_isLive = isLive;
    setInteractions(isLive ? QCP::Interactions() : QCP::iRangeDrag | QCP::iRangeZoom);
    setCursor(isLive ? Qt::ArrowCursor : Qt::OpenHandCursor);
}

void PlotView::refresh(double now)
{
    if (m_isLive)
        xAxis->setRange(now, m_span, Qt::AlignRight);
    fitValues();
    replot(rpQueuedRefresh);
}

/// Half the time of a pixel.
std::chrono::milliseconds PlotView::refreshInterval() const
{
    const double pixel = m_span / std::max(width(), 1);
    const std::chrono::milliseconds half(std::lround(pixel * 1000 / 2));
    return std::clamp<std::chrono::milliseconds>(half, shortestInterval, longestInterval);
}

QColor PlotView::colour(int index, const QPalette& palette)
{
    return preferences::contrasting(QColor(colours[index]), palette.color(QPalette::Base),
                                    preferences::contrastOfControls);
}

QSize PlotView::sizeHint() const
{
    return {420, 220};
}

QSize PlotView::minimumSizeHint() const
{
    return {160, 120};
}

void PlotView::changeEvent(QEvent* event)
{
    QCustomPlot::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::FontChange:
    case QEvent::LocaleChange:
        takeAppearance();
        break;
    default:
        break;
    }
}

void PlotView::paintEvent(QPaintEvent* event)
{
    QCustomPlot::paintEvent(event);
    QPainter painter(this);
    if (graphCount() == 0) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(axisRect()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_words);
    }
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void PlotView::wheelEvent(QWheelEvent* event)
{
    if (m_isLive)
        event->ignore(); // for whoever scrolls past
    else
        QCustomPlot::wheelEvent(event);
}

void PlotView::keyPressEvent(QKeyEvent* event)
{
    if (m_isLive) {
        QCustomPlot::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Left:
        move(-moveStep);
        break;
    case Qt::Key_Right:
        move(moveStep);
        break;
    case Qt::Key_PageUp:
        move(-1);
        break;
    case Qt::Key_PageDown:
        move(1);
        break;
    case Qt::Key_Plus:
        zoom(1 / zoomStep);
        break;
    case Qt::Key_Minus:
        zoom(zoomStep);
        break;
    default:
        QCustomPlot::keyPressEvent(event);
    }
}

void PlotView::focusInEvent(QFocusEvent* event)
{
    QCustomPlot::focusInEvent(event);
    update();
}

void PlotView::focusOutEvent(QFocusEvent* event)
{
    QCustomPlot::focusOutEvent(event);
    update();
}

void PlotView::takeAppearance()
{
    const QColor text = palette().color(QPalette::Text);
    QColor grid = text;
    grid.setAlphaF(0.15F);
    setBackground(QBrush(palette().color(QPalette::Base)));
    for (QCPAxis* axis : {xAxis, yAxis}) {
        axis->setBasePen(QPen(text));
        axis->setTickPen(QPen(text));
        axis->setSubTickPen(QPen(text));
        axis->setTickLabelColor(text);
        axis->setTickLabelFont(font());
        axis->grid()->setPen(QPen(grid));
        axis->grid()->setZeroLinePen(QPen(grid));
    }
    for (int i = 0; i < graphCount(); ++i)
        graph(i)->setPen(QPen(colour(m_colours[static_cast<std::size_t>(i)], palette())));
    if (isVisible())
        replot(rpQueuedRefresh);
}

/// By hand, where it is not live.
void PlotView::onMoved(const QCPRange& range)
{
    if (m_isLive)
        return;
    if (range.size() < shortestSpan || range.size() > longestSpan)
        xAxis->setRange(range.center(), std::clamp(range.size(), shortestSpan, longestSpan),
                        Qt::AlignCenter);
    fitValues();
    replot(rpQueuedReplot);
}

void PlotView::move(double widths)
{
    xAxis->moveRange(widths * xAxis->range().size());
}

void PlotView::zoom(double factor)
{
    xAxis->scaleRange(factor);
}

void PlotView::fitValues()
{
    bool isAny = false;
    QCPRange values;
    for (int i = 0; i < graphCount(); ++i) {
        const auto data = graph(i)->data();
        const auto begin = data->findBegin(xAxis->range().lower);
        const auto end = data->findEnd(xAxis->range().upper);
        graph(i)->setScatterStyle(end - begin < fewPoints
                                      ? QCPScatterStyle(QCPScatterStyle::ssDisc, markSize)
                                      : QCPScatterStyle(QCPScatterStyle::ssNone));
        QPen pen = graph(i)->pen();
        pen.setWidth(end - begin > manyPoints ? 0 : 1);
        graph(i)->setPen(pen);
        for (auto point = begin; point != end; ++point) {
            if (std::isnan(point->value))
                continue;
            values.lower = isAny ? std::min(values.lower, point->value) : point->value;
            values.upper = isAny ? std::max(values.upper, point->value) : point->value;
            isAny = true;
        }
    }
    if (!isAny)
        return;
    const double least = std::max(std::abs(values.center()) * 1e-6, 1e-9);
    const double height = std::max(values.size(), least);
    yAxis->setRange(values.center(), height * (1 + 2 * margin), Qt::AlignCenter);
}

} // namespace host::workbench::plots
