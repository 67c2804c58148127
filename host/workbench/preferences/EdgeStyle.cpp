// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/EdgeStyle.h"

#include "host/workbench/preferences/Contrast.h"

#include <QPainter>
#include <QStyleOption>

namespace host::workbench::preferences {

namespace {

constexpr double radius = 2;      // of fusion's corners
constexpr double edgeWidth = 1.3; // a circle's would be too faint in one pixel

QColor edgeColour(const QPalette& palette)
{
    QColor colour = palette.color(QPalette::Mid);
    for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::Button})
        colour = contrasting(colour, palette.color(ground), contrastOfControls);
    return colour;
}

/// What has the focus keeps the edge that says so, and what is disabled stays faint.
bool hasEdgeOfItsOwn(const QStyleOption& option)
{
    return !(option.state & QStyle::State_Enabled) || (option.state & QStyle::State_HasFocus);
}

void drawEdge(const QStyleOption& option, QPainter* painter, double rounding)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(edgeColour(option.palette), edgeWidth));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), rounding,
                             rounding);
    painter->restore();
}

} // namespace

EdgeStyle::EdgeStyle() : QProxyStyle(QStringLiteral("fusion"))
{
    setObjectName("fusion");
}

void EdgeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_FrameMenu:
    case PE_PanelMenu:
        drawEdge(*option, painter, 0);
        break;
    case PE_IndicatorRadioButton:
        if (!hasEdgeOfItsOwn(*option))
            drawEdge(*option, painter, option->rect.height() / 2.0);
        break;
    case PE_FrameLineEdit:
    case PE_IndicatorCheckBox:
    case PE_PanelButtonCommand:
        if (!hasEdgeOfItsOwn(*option))
            drawEdge(*option, painter, radius);
        break;
    default:
        break;
    }
}

void EdgeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if ((control == CC_ComboBox || control == CC_SpinBox) && !hasEdgeOfItsOwn(*option))
        drawEdge(*option, painter, radius);
}

} // namespace host::workbench::preferences
