// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/tour/Hand.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace host::tour::hand {

namespace {

void pressAndRelease(QWidget& window, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const QPointer<QWindow> handle = window.windowHandle();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (!handle)
            return; // the press closed it
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(handle, &event);
    }
}

} // namespace

void click(QWidget& target, QPoint place, Qt::MouseButton button)
{
    const QPointer<QWindow> handle = target.window()->windowHandle();
    const QPoint inWindow = target.mapTo(target.window(), place);
    const QPoint onScreen = target.mapToGlobal(place);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (!handle)
            return; // the press closed it
        QMouseEvent event(type, inWindow, onScreen, button,
                          type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(handle, &event);
    }
}

void click(QWidget& target)
{
    click(target, target.rect().center());
}

void choose(QMenu& menu, QAction& action)
{
    click(menu, menu.actionGeometry(&action).center());
}

void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    pressAndRelease(window, key, modifiers,
                    key == Qt::Key_Return ? QStringLiteral("\r") : QString());
}

void type(QWidget& window, const QString& text)
{
    for (const QChar c : text)
        pressAndRelease(window, 0, Qt::NoModifier, c);
}

} // namespace host::tour::hand
