// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_INPUT_ACTION_H
#define HOST_INPUT_ACTION_H

#include <QString>

#include <vector>

class QWidget;

namespace host::input {

/// One thing that a person does with a widget, or its host. It is text, so that a list of them can
/// be drawn at random, cut down, kept in a file and done again.
struct Action
{
    QString verb;   ///< of a person: "click", "right-click", "double-click", "drag" or "press"
    QString target; ///< the control, as pathOf() names it; of a host what it tells of
    QString value;  ///< places in the control, "8,8" or "8,8 20,8"; a key; what a host tells

    QString inWords() const;
};

using ActionList = std::vector<Action>;

/// What a person can use where @p widget is the one to look at: a menu or a dialog that lies above
/// it, or else itself.
QWidget* screenAbove(QWidget* widget);

/// The control that a person's @p action is about, in @p screen; null where it is not to be seen.
QWidget* controlOf(const Action& action, QWidget& screen);

/// Does to @p control what a person's @p action says; false where it is no person's. Comes back
/// only when a menu or a dialog that it opens is closed.
bool perform(const Action& action, QWidget& control);

} // namespace host::input

#endif
