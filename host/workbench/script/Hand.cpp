// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/Hand.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace host::workbench::script::hand {

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

void sendMouse(QEvent::Type type, QWidget& target, QPoint place, Qt::MouseButton button)
{
    QWindow* const handle = target.window()->windowHandle();
    if (!handle)
        return;
    QMouseEvent event(type, target.mapTo(target.window(), place), target.mapToGlobal(place), button,
                      type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &event);
}

} // namespace

void hold(QWidget& target, QPoint place, Qt::MouseButton button)
{
    sendMouse(QEvent::MouseButtonPress, target, place, button);
}

void letGo(QWidget& target, QPoint place, Qt::MouseButton button)
{
    sendMouse(QEvent::MouseButtonRelease, target, place, button);
}

void click(QWidget& target, QPoint place, Qt::MouseButton button)
{
    const QPointer<QWidget> stillThere(&target);
    hold(target, place, button);
    if (stillThere) // or else the press closed it
        letGo(target, place, button);
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

} // namespace host::workbench::script::hand
