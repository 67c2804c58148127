// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_MOVEMOUSE_H
#define TESTS_MOVEMOUSE_H

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

/// To @p place in @p widget, with @p buttons held: QTest's own tells of none with Qt 5.
inline void moveMouse(QWidget& widget, const QPoint& place, Qt::MouseButtons buttons)
{
    QMouseEvent event(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

#endif
