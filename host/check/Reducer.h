// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_REDUCER_H
#define HOST_CHECK_REDUCER_H

#include "host/check/stage/Actions.h"

#include <functional>

namespace host::check {

/// Cuts a list of actions down to what still brings a failure about.
class Reducer
{
public:
    /// Whether a list still does.
    using Fails = std::function<bool(const stage::ActionList& actions)>;

    /// Asks @p fails at most @p mostAttempts times.
    Reducer(Fails fails, int mostAttempts);

    /// A list that fails, as short as it could be made; @p actions as they are where they do not
    /// fail again.
    stage::ActionList reduced(stage::ActionList actions);

private:
    bool stillFails(const stage::ActionList& actions);

    const Fails m_fails;
    int m_attempts;
};

} // namespace host::check

#endif
