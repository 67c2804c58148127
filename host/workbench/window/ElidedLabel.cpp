// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/ElidedLabel.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace host::workbench::window {

namespace {

constexpr int leastCharacters = 12;

} // namespace

ElidedLabel::ElidedLabel()
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize ElidedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return {fontMetrics().horizontalAdvance(text().simplified()) + margins.left() + margins.right(),
            minimumSizeHint().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QMargins margins = contentsMargins();
    return {leastCharacters * fontMetrics().averageCharWidth() + margins.left() + margins.right(),
            fontMetrics().lineSpacing() + margins.top() + margins.bottom()};
}

QStringList ElidedLabel::lines() const
{
    const QString text = this->text().simplified();
    const int width = contentsRect().width();
    const int most = qMax(1, contentsRect().height() / fontMetrics().lineSpacing());
    QStringList lines;
    QTextLayout layout(text, font());
    layout.setTextOption(QTextOption(Qt::AlignLeading));
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == most) {
            lines << fontMetrics().elidedText(text.mid(line.textStart()), Qt::ElideRight, width);
            break;
        }
        lines << text.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return lines;
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter); // and a style sheet's background
    QRect line = contentsRect();
    line.setHeight(fontMetrics().lineSpacing());
    for (const QString& text : lines()) {
        style()->drawItemText(&painter, line, Qt::AlignLeading | Qt::AlignVCenter, palette(),
                              isEnabled(), text, foregroundRole());
        line.translate(0, line.height());
    }
}

} // namespace host::workbench::window
