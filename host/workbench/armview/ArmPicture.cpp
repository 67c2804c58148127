// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/ArmPicture.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace host::workbench::armview {

namespace {

const QColor targetColour(0xe8, 0x6a, 0x17); // seen on light and on dark
constexpr double leastExtent = 3;            // links: a coiled arm is not drawn larger than that
constexpr double frame = 14;                 // pixels about the arm
constexpr double thickest = 9;               // pixels

} // namespace

ArmPicture::ArmPicture(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ArmPicture::setShapes(const QPolygonF& present, const QPolygonF& target, bool isOld)
{
    if (present == m_present && target == m_target && isOld == m_isOld)
        return;
    m_present = present;
    m_target = target;
    m_isOld = isOld;
    update();
}

QSize ArmPicture::sizeHint() const
{
    return {300, 180};
}

QSize ArmPicture::minimumSizeHint() const
{
    return {120, 90};
}

/// All of it is in sight, in the middle.
QTransform ArmPicture::toPixels() const
{
    const QRectF extent = m_present.boundingRect() | m_target.boundingRect();
    const double scale = std::min((width() - 2 * frame) / std::max(extent.width(), leastExtent),
                                  (height() - 2 * frame) / std::max(extent.height(), leastExtent));
    QTransform transform;
    transform.translate(width() / 2.0, height() / 2.0);
    transform.scale(scale, -scale);
    transform.translate(-extent.center().x(), -extent.center().y());
    return transform;
}

void ArmPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (m_present.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform transform = toPixels();
    const double thickness = std::clamp(transform.m11() / 3, 3.0, thickest);
    const QPolygonF present = transform.map(m_present);

    const QPointF foot = present.first();
    painter.setPen(QPen(palette().color(QPalette::Text), 2));
    painter.drawLine(foot + QPointF(-frame, thickness), foot + QPointF(frame, thickness));

    const QColor colour = m_isOld ? palette().color(QPalette::Disabled, QPalette::Text)
                                  : palette().color(QPalette::Highlight);
    painter.setPen(QPen(colour, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(present);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Base));
    for (const QPointF& joint : present)
        painter.drawEllipse(joint, thickness / 4, thickness / 4);

    if (m_target.isEmpty())
        return;
    QPainterPath target;
    target.addPolygon(transform.map(m_target));
    QPainterPathStroker stroker(
        QPen(Qt::black, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setPen(QPen(targetColour, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(stroker.createStroke(target).simplified());
}

} // namespace host::workbench::armview
