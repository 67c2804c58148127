// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/Ruler.h"

#include <QLocale>
#include <QPainter>
#include <QStringList>
#include <QWidget>
#include <QtMath>

#include <cmath>

namespace host::workbench::robotview {

namespace {

/// From the x axis of the world towards its y axis, from -180 to 180.
int degrees(const QLineF& line)
{
    return qRound(qRadiansToDegrees(std::atan2(line.dy(), line.dx())));
}

} // namespace

void Ruler::extend(const QPointF& place)
{
    if (m_line)
        m_line->setP2(place);
}

QString Ruler::words() const
{
    const auto metres = [](double number) { return QLocale().toString(number, 'f', 2); };
    QStringList lines;
    if (m_pointed)
        lines << tr("x %1 m, y %2 m").arg(metres(m_pointed->x()), metres(m_pointed->y()));
    if (m_line)
        lines << tr("%1 m at %2°")
                     .arg(metres(m_line->length()), QLocale().toString(degrees(*m_line)));
    return lines.join(u'\n');
}

void Ruler::paint(QPainter& painter, const QTransform& toPixels, const QWidget& view) const
{
    const QPalette& palette = view.palette();
    if (m_line) {
        const QLineF line = toPixels.map(*m_line);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette.color(QPalette::Base), 4)); // seen on walls as well
        painter.drawLine(line);
        painter.setPen(QPen(palette.color(QPalette::Text), 2));
        painter.drawLine(line);
        painter.restore();
    }
    const QString text = words();
    if (text.isEmpty())
        return;
    constexpr int margin = 8;
    const QRect room = view.rect().adjusted(margin, margin, -margin, -margin);
    const int flags = Qt::AlignRight | Qt::AlignBottom;
    const QRect place = view.fontMetrics().boundingRect(room, flags, text);
    QColor ground = palette.color(QPalette::Base);
    ground.setAlpha(190);
    painter.fillRect(place.adjusted(-3, -3, 3, 3), ground);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(room, flags, text);
}

} // namespace host::workbench::robotview
