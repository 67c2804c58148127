// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/RateLimit.h"

#include <algorithm>

namespace rosbridge::server {

RateLimit::RateLimit(int perSecond, int burst)
    : m_perMillisecond(perSecond / 1000.0),
      m_burst(burst),
      m_left(burst)
{
}

bool RateLimit::allow(Time now, int amount)
{
    m_left =
        std::min(m_burst, m_left + m_perMillisecond * static_cast<double>((now - m_last).count()));
    m_last = now;
    if (m_left < amount)
        return false;
    m_left -= amount;
    return true;
}

} // namespace rosbridge::server
