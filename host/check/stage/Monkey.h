// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_MONKEY_H
#define HOST_CHECK_STAGE_MONKEY_H

#include "host/check/stage/Actions.h"

#include <QEventLoop>
#include <QObject>

#include <functional>
#include <optional>

namespace host::check::stage {

/// Uses a widget without an idea of what it does. It goes on while a menu or a dialog waits for a
/// person, in there.
class Monkey
{
public:
    /// What to do next, asked when what the one before caused has begun; nothing ends it.
    using Next = std::function<std::optional<Action>()>;

    /// @p stage outlives it, and is shown.
    Monkey(Stage& stage, Next next);

    /// Comes back when there is nothing more to do, or the widget is gone; everything that was
    /// opened is closed then.
    void run();

private:
    void later(void (Monkey::*step)());
    void act();
    void close();

    Stage& m_stage;
    const Next m_next;
    QEventLoop m_loop;
    QObject m_context; // of what is to come
};

} // namespace host::check::stage

#endif
