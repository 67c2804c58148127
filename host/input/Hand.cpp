// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/input/Hand.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <type_traits>

namespace host::input::hand {

namespace {

/// @p held are the buttons that are down afterwards.
void sendMouse(QEvent::Type type, QWidget& target, QPoint place, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    const QWidget& window = *target.window();
    QWindow* const handle = window.windowHandle();
    if (!handle)
        return;
    QMouseEvent event(type, target.mapTo(&window, place), target.mapToGlobal(place), button, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &event);
}

/// A number in Qt 5, and an object in Qt 6.
template <class Combination>
int combined(Combination combination)
{
    if constexpr (std::is_integral_v<Combination>)
        return combination;
    else
        return combination.toCombined();
}

/// With its modifiers.
int keyOf(const QString& name)
{
    const auto keys = QKeySequence::fromString(name, QKeySequence::PortableText);
    return keys.count() == 1 ? combined(keys[0]) : Qt::Key_unknown;
}

QString textOf(int key, const QString& name)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Space:
        return QStringLiteral(" ");
    case Qt::Key_Tab:
        return QStringLiteral("\t");
    default:
        return name.size() == 1 ? name : QString();
    }
}

void sendKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers, const QString& text)
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

void hold(QWidget& target, QPoint place, Qt::MouseButton button)
{
    sendMouse(QEvent::MouseButtonPress, target, place, button, button);
}

void letGo(QWidget& target, QPoint place, Qt::MouseButton button)
{
    sendMouse(QEvent::MouseButtonRelease, target, place, button, Qt::NoButton);
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

void doubleClick(QWidget& target, QPoint place)
{
    const QPointer<QWidget> stillThere(&target);
    sendMouse(QEvent::MouseButtonDblClick, target, place, Qt::LeftButton, Qt::LeftButton);
    if (stillThere)
        letGo(target, place);
}

void drag(QWidget& target, QPoint begin, QPoint end)
{
    const QPointer<QWidget> stillThere(&target);
    hold(target, begin);
    for (const QPoint& place : {(begin + end) / 2, end}) {
        if (stillThere)
            sendMouse(QEvent::MouseMove, target, place, Qt::NoButton, Qt::LeftButton);
    }
    if (stillThere)
        letGo(target, end);
}

void choose(QMenu& menu, QAction& action)
{
    click(menu, menu.actionGeometry(&action).center());
}

void press(QWidget& window, const QString& name)
{
    constexpr int modifiers = static_cast<int>(Qt::KeyboardModifierMask);
    const int key = keyOf(name);
    if (key != Qt::Key_unknown)
        sendKey(window, key & ~modifiers, Qt::KeyboardModifiers(QFlag(key & modifiers)),
                textOf(key, name));
}

bool isKey(const QString& name)
{
    return keyOf(name) != Qt::Key_unknown;
}

void type(QWidget& window, const QString& text)
{
    const QPointer<QWidget> stillThere(&window);
    for (const QChar c : text) {
        if (stillThere)
            sendKey(window, 0, Qt::NoModifier, c);
    }
}

} // namespace host::input::hand
