// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/RateMeter.h"

#include <cmath>

namespace host::device::readers {

namespace {

constexpr std::chrono::seconds window(1);
constexpr double shortest = 0.1; // seconds: what comes closer may be a burst, and is no rate

} // namespace

void RateMeter::arrived(TimePoint now)
{
    m_arrivals.push_back(now);
    while (now - m_arrivals.front() > window)
        m_arrivals.pop_front();
}

unsigned int RateMeter::rate(TimePoint now) const
{
    if (m_arrivals.size() < 2 || isSilent(now))
        return 0;
    const auto span = std::chrono::duration<double>(m_arrivals.back() - m_arrivals.front()).count();
    if (span < shortest)
        return 0;
    return static_cast<unsigned int>(
        std::lround(static_cast<double>(m_arrivals.size() - 1) / span));
}

bool RateMeter::isSilent(TimePoint now) const
{
    return m_arrivals.empty() || now - m_arrivals.back() > window;
}

} // namespace host::device::readers
