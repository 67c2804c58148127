// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/operation/HoldToRun.h"

#include <utility>

namespace host::device::operation {

void HoldToRun::hold(const Push& push)
{
    m_push = push;
    if (m_state == State::Free)
        m_state = State::Running;
}

void HoldToRun::letGo()
{
    m_state = State::Free;
}

void HoldToRun::end()
{
    if (m_state == State::Running)
        m_state = State::Ended;
}

std::optional<HoldToRun::Push> HoldToRun::take(Clock::time_point now)
{
    if (m_state != State::Running)
        return std::exchange(m_owesZero, false) ? std::optional<Push>(Push()) : std::nullopt;
    if (m_owesZero && now < m_due)
        return std::nullopt;
    // Two come closely together only where the later one was due long ago.
    m_due += period;
    if (!m_owesZero || m_due <= now)
        m_due = now + period;
    m_owesZero = true;
    return m_push;
}

} // namespace host::device::operation
