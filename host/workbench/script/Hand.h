// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_HAND_H
#define HOST_WORKBENCH_SCRIPT_HAND_H

#include <QPoint>
#include <QString>
#include <Qt>

class QAction;
class QMenu;
class QWidget;

/// A person's hand on the mouse and the keys. What it does reaches the window as from the screen,
/// so that popups, focus and disabled widgets count. It is held up by what it opens.
namespace host::workbench::script::hand {

/// @p place is in @p target, which is in a window that is shown.
void click(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);
/// In the middle.
void click(QWidget& target);
/// The two halves of a click.
void hold(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);
void letGo(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);

/// @p action of @p menu, which is open.
void choose(QMenu& menu, QAction& action);

/// A key to whatever has the focus in @p window.
void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// As press(), key by key.
void type(QWidget& window, const QString& text);

} // namespace host::workbench::script::hand

#endif
