#include "host/workbench/window/Lamp.h"

#include "host/device/connection/Connection.h"

#include <QPainter>

namespace host::workbench::window {

Lamp::Lamp()
{
    setState(-1);
}

void Lamp::setState(int state)
{
    constexpr int size = 14;
    // Grey, amber and green differ in brightness too.
    const QColor color(state < 0                                           ? "#8a8f94"
                       : state < device::connection::Connection::connected ? "#e69f00"
                                                                           : "#1e8e3e");
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap(qRound(size * ratio), qRound(size * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(1, 1, size - 2, size - 2));
    painter.end();
    setPixmap(pixmap);
}

} // namespace host::workbench::window
