// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/WheelGuard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace host::workbench::window {

namespace {

bool isValueControl(const QObject& object)
{
    return qobject_cast<const QAbstractSpinBox*>(&object) ||
           qobject_cast<const QComboBox*>(&object) ||
           (qobject_cast<const QAbstractSlider*>(&object) &&
            !qobject_cast<const QScrollBar*>(&object));
}

} // namespace

WheelGuard::WheelGuard()
{
    qApp->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    const bool isFirstShown = event->type() == QEvent::Polish;
    if ((!isFirstShown && event->type() != QEvent::Wheel) || !watched->isWidgetType() ||
        !isValueControl(*watched))
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    if (isFirstShown) {
        // The wheel must not give it the focus on its way either.
        if (widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (widget->hasFocus())
        return false;
    event->ignore(); // so that it goes on to the parent
    return true;
}

} // namespace host::workbench::window
