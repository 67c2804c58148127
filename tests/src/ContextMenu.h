// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_CONTEXTMENU_H
#define QUANDREL_CONTEXTMENU_H

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QStringList>
#include <QTimer>

/// Opens the widget's context menu, hands it to @p inspect and closes it. False where there was
/// no menu. The widget may be deleted meanwhile.
template <class Inspect>
bool withContextMenu(QWidget& widget, Inspect inspect)
{
    bool opened = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return; // not yet: the event loop of the menu is about to start
        timer.stop();
        opened = true;
        inspect(*menu);
        if (menu)
            menu->close();
    });
    timer.start(0);
    const QPoint place = widget.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    return opened;
}

/// The entries as their texts, "-" for a separator.
inline QStringList entries(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts.append(action->isSeparator() ? QString("-") : action->text());
    return texts;
}

#endif
