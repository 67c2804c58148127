// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_INPUT_HAND_H
#define HOST_INPUT_HAND_H

#include <QPoint>
#include <QString>
#include <Qt>

class QAction;
class QMenu;
class QWidget;

/// A person's hand on the mouse and the keys. What it does reaches the window as from the screen,
/// so that popups, focus and disabled widgets count. It is held up by what it opens, and does
/// nothing where the window is not shown or goes meanwhile.
namespace host::input::hand {

/// @p place is in @p target.
void click(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);
/// In the middle.
void click(QWidget& target);
/// The second click of two.
void doubleClick(QWidget& target, QPoint place);
/// From @p begin to @p end with the left button held, by way of the middle.
void drag(QWidget& target, QPoint begin, QPoint end);
/// The two halves of a click.
void hold(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);
void letGo(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);

/// @p action of @p menu, which is open.
void choose(QMenu& menu, QAction& action);

/// The key @p name, as QKeySequence writes it in portable text ("Return" or "Ctrl+A" for instance),
/// to whatever has the focus in @p window. A letter alone is written as it stands.
void press(QWidget& window, const QString& name);
/// Whether press() knows it.
bool isKey(const QString& name);
/// Key by key, whatever keyboard has it.
void type(QWidget& window, const QString& text);

} // namespace host::input::hand

#endif
