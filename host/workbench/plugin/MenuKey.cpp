// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/MenuKey.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace host::workbench::plugin {

namespace {

bool isMenuKey(const QKeyEvent& event)
{
    return (event.key() == Qt::Key_Menu && event.modifiers() == Qt::NoModifier) ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

} // namespace

MenuKey::MenuKey(QAbstractItemView& view) : QObject(&view), m_view(view)
{
    view.installEventFilter(this);
}

bool MenuKey::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_view || event->type() != QEvent::KeyPress ||
        !isMenuKey(static_cast<const QKeyEvent&>(*event)))
        return false;
    press();
    return true;
}

void MenuKey::press()
{
    const QModelIndex current = m_view.currentIndex();
    QWidget* const viewport = m_view.viewport();
    QPoint place = viewport->rect().bottomRight();
    if (current.isValid()) {
        m_view.scrollTo(current);
        place = m_view.visualRect(current).intersected(viewport->rect()).center();
    }
    const QPointF onScreen = viewport->mapToGlobal(place);
    QMouseEvent press(QEvent::MouseButtonPress, place, onScreen, Qt::RightButton, Qt::RightButton,
                      Qt::NoModifier);
    const QPointer<QWidget> still = viewport; // the menu is open within the press
    QCoreApplication::sendEvent(viewport, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, place, onScreen, Qt::RightButton, Qt::NoButton,
                        Qt::NoModifier);
    if (still)
        QCoreApplication::sendEvent(viewport, &release);
}

} // namespace host::workbench::plugin
