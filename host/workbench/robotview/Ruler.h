// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_RULER_H
#define HOST_WORKBENCH_ROBOTVIEW_RULER_H

#include <QCoreApplication>
#include <QLineF>
#include <QTransform>

#include <optional>

class QPainter;
class QWidget;

namespace host::workbench::robotview {

/// What a person measures with the mouse in a view of the world: the place under it, and the way
/// from one place to another.
class Ruler
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::robotview::Ruler)

public:
    /// The mouse is at @p place in the world, in metres, or at none.
    void point(const std::optional<QPointF>& place) { m_pointed = place; }

    /// Measures from @p place on; extend() moves the other end.
    void begin(const QPointF& place) { m_line = QLineF(place, place); }
    void extend(const QPointF& place);
    void clear() { m_line.reset(); }

    /// The place and, below, the length and direction of the way; nothing without a mouse.
    QString words() const;

    /// Over the world in @p view; @p toPixels leads there.
    void paint(QPainter& painter, const QTransform& toPixels, const QWidget& view) const;

private:
    std::optional<QPointF> m_pointed;
    std::optional<QLineF> m_line;
};

} // namespace host::workbench::robotview

#endif
