// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/Series.h"

#include "host/workbench/plots/CustomPlot.h"

#include <algorithm>
#include <cmath>

namespace host::workbench::plots {

namespace {

constexpr double shortestGap = 2; // seconds
constexpr double gapFactor = 3;   // of the pause before

} // namespace

Series::Series() : m_data(new Data) {}

void Series::append(double time, double value)
{
    if (!std::isfinite(value)) {
        breakOff();
        return;
    }
    const double pause = m_data->isEmpty() ? 0 : time - m_lastTime;
    // In the middle of the gap, where no value shares its pixel: QCustomPlot takes together what
    // does.
    if (!m_data->isEmpty() && (m_isBroken || isGap(pause)))
        m_data->add({m_lastTime + pause / 2, std::nan("")});
    m_data->add({time, value});
    if (m_data->size() > mostPoints)
        m_data->removeBefore(m_data->at(m_data->size() - mostPoints)->key);
    m_isBroken = false;
    m_lastTime = time;
    m_lastPause = pause;
}

void Series::clear()
{
    m_data->clear();
    m_isBroken = true;
}

std::optional<double> Series::current(double now) const
{
    if (m_isBroken || isGap(now - m_lastTime))
        return std::nullopt;
    return (m_data->constEnd() - 1)->value;
}

/// Some quantities come every few seconds only, and are no worse for it.
bool Series::isGap(double pause) const
{
    return pause > std::max(shortestGap, gapFactor * m_lastPause);
}

} // namespace host::workbench::plots
