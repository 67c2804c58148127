// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_ACTIONS_H
#define HOST_CHECK_STAGE_ACTIONS_H

#include "host/check/stage/Usage.h"
#include "host/input/Action.h"

#include <random>

namespace host::check::stage {

class Stage;

using input::Action;
using input::ActionList;

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
