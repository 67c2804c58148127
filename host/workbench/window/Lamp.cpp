// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/Lamp.h"

#include "host/device/connection/Connection.h"

#include <QPainter>

namespace host::workbench::window {

namespace {

using device::connection::Connection;

QColor colorOf(int state, bool isLost)
{
    if (state == Connection::connected)
        return "#1e8e3e";
    if (state == Connection::passive)
        return "#1565c0";
    if (state != Connection::notConnected)
        return "#e69f00";
    return isLost ? "#c8362c" : "#8a8f94";
}

} // namespace

Lamp::Lamp()
{
    setState(Connection::notConnected, false);
}

void Lamp::setState(int state, bool isLost)
{
    constexpr int size = 14;
    const QColor color = colorOf(state, isLost);
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap(qRound(size * ratio), qRound(size * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // The colours differ in brightness too, and those which could be confused in shape.
    const bool isRing = state == Connection::passive;
    painter.setPen(isRing ? QPen(color, 3) : QPen(Qt::NoPen));
    painter.setBrush(isRing ? QBrush(Qt::NoBrush) : QBrush(color));
    const qreal margin = isRing ? 2.5 : 1;
    painter.drawEllipse(QRectF(0, 0, size, size).marginsRemoved({margin, margin, margin, margin}));
    if (state == Connection::notConnected && isLost) {
        painter.setPen(QPen(Qt::white, 2));
        painter.drawLine(QPointF(4.5, 4.5), QPointF(size - 4.5, size - 4.5));
        painter.drawLine(QPointF(4.5, size - 4.5), QPointF(size - 4.5, 4.5));
    }
    painter.end();
    setPixmap(pixmap);
}

} // namespace host::workbench::window
