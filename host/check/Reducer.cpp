// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/Reducer.h"

#include <algorithm>

namespace host::check {

using stage::ActionList;

Reducer::Reducer(Fails fails, int mostAttempts)
    : m_fails(std::move(fails)),
      m_attempts(mostAttempts)
{
}

bool Reducer::stillFails(const ActionList& actions)
{
    return m_attempts-- > 0 && m_fails(actions);
}

ActionList Reducer::reduced(ActionList actions)
{
    if (!stillFails(actions))
        return actions;
    // Without each part in turn, of half the list at first, of a single action at last.
    for (std::size_t part = (actions.size() + 1) / 2; part > 0;
         part = part == 1 ? 0 : (part + 1) / 2) {
        std::size_t begin = 0;
        while (begin < actions.size()) {
            const auto first = actions.begin() + static_cast<std::ptrdiff_t>(begin);
            const auto last =
                first + static_cast<std::ptrdiff_t>(std::min(part, actions.size() - begin));
            ActionList rest(actions.begin(), first);
            rest.insert(rest.end(), last, actions.end());
            if (stillFails(rest))
                actions = rest;
            else
                begin += part;
        }
    }
    return actions;
}

} // namespace host::check
