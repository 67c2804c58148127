// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/Contrast.h"

#include <algorithm>
#include <cmath>

namespace host::workbench::preferences {

namespace {

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

int between(int from, int to, int step, int steps)
{
    return from + (to - from) * step / steps;
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor contrasting(const QColor& colour, const QColor& ground, double least)
{
    const bool isDark = contrast(Qt::white, ground) > contrast(Qt::black, ground);
    const QColor extreme = isDark ? Qt::white : Qt::black;
    constexpr int steps = 64;
    for (int step = 0; step < steps; ++step) {
        const QColor found(between(colour.red(), extreme.red(), step, steps),
                           between(colour.green(), extreme.green(), step, steps),
                           between(colour.blue(), extreme.blue(), step, steps));
        if (contrast(found, ground) >= least)
            return found;
    }
    return extreme;
}

} // namespace host::workbench::preferences
