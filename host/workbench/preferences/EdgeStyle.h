// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_EDGESTYLE_H
#define HOST_WORKBENCH_PREFERENCES_EDGESTYLE_H

#include <QProxyStyle>

namespace host::workbench::preferences {

/// Qt's own style "fusion", with edges that can be seen: its own are a shade of the window, which
/// leaves fields hardly visible in a bright window and menus without an edge in a dark one.
class EdgeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    EdgeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget = nullptr) const override;
};

} // namespace host::workbench::preferences

#endif
