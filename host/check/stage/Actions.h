// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_ACTIONS_H
#define HOST_CHECK_STAGE_ACTIONS_H

#include "host/check/stage/Usage.h"

#include <QString>
#include <QStringList>

#include <random>
#include <vector>

namespace host::check::stage {

class Stage;

/// One thing that a host does with a widget, or a person. It is text, so that a list of them can be
/// drawn at random, cut down, kept in a file and played again.
struct Action
{
    QString verb;   ///< one of those that play() knows
    QString target; ///< what it is done to: a variable, a role, a control as pathOf() names it
    QString value;  ///< a place among the usualValues(), a size, a place in the control, a key

    QString inWords() const;
};

using ActionList = std::vector<Action>;

/// What a host may do at any time with a widget that uses @p usage, each at least once.
ActionList notifications(const Usage& usage, std::mt19937& random);

/// What a person may do with what is on the screen: the widget, or the menu or dialog that lies
/// above it.
Action drawFromScreen(const Stage& stage, std::mt19937& random);

/// Does it, once. Comes back only when a menu or a dialog that it opens is closed.
void perform(const Action& action, Stage& stage);

/// Does it all, in order, until the widget is gone.
void play(const ActionList& actions, Stage& stage);

} // namespace host::check::stage

#endif
