// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_PLOTVIEW_H
#define HOST_WORKBENCH_PLOTS_PLOTVIEW_H

#include "host/workbench/plots/CustomPlot.h"
#include "host/workbench/plots/Series.h"

#include <QColor>
#include <QString>

#include <chrono>
#include <vector>

namespace host::workbench::plots {

/// Lines over time, which either follow the present or stay where they are, to be moved and zoomed
/// by mouse, wheel and keys. The values in sight always fill the height.
class PlotView : public QCustomPlot
{
    Q_OBJECT

public:
    static constexpr int colourCount = 10;

    struct Shown
    {
        const Series* series;
        int colour;     ///< below colourCount
        bool isStepped; ///< it keeps each value until the next one
    };

    explicit PlotView(QWidget* parent = nullptr);

    /// The series outlive the view, or its next lines. @p words are shown where there are none.
    void setLines(const std::vector<Shown>& lines);
    void setWords(const QString& words);

    /// How much time is in sight.
    void setSpan(std::chrono::seconds span);

    /// While it is live its end is @p now at each refresh().
    void setLive(bool isLive);
    bool isLive() const { return m_isLive; }
    void refresh(double now);

    /// The least time after which a refresh shows anything new, but for a value at the end.
    std::chrono::milliseconds refreshInterval() const;

    /// Seen well on @p palette.
    static QColor colour(int index, const QPalette& palette);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void takeAppearance();
    void onMoved(const QCPRange& range);
    void move(double widths);
    void zoom(double factor);
    void fitValues();

    std::vector<int> m_colours; // of the graphs
    QString m_words;
    double m_span;
    bool m_isLive = true;
};

} // namespace host::workbench::plots

#endif
