// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/LineReader.h"

#include <cmath>

namespace robot::recording {

namespace {

// Far beyond any laser, and near enough for every sum of ranges.
constexpr double farthest = 10000.0; // metres

// Whatever epoch the clock has; differences of two such times fit into simulation::Time.
constexpr double latest = 4e18; // nanoseconds

} // namespace

LineReader::LineReader(const Tokens& tokens, QString* reason) : m_tokens(tokens), m_reason(reason)
{
}

void LineReader::skip(size_t count)
{
    if (count > left())
        fail(tr("the line ends too early, after %1 words").arg(m_tokens.size()));
    else
        m_position += count;
}

double LineReader::number(const QString& name, double minimum, double maximum)
{
    if (m_isBad)
        return 0.0;
    skip(1);
    if (m_isBad)
        return 0.0;
    const std::string_view word = m_tokens[m_position - 1];
    const std::optional<double> number = toNumber(word);
    if (!number || *number < minimum || *number > maximum) {
        fail(tr("%1, word %2, is %3 and not a number from %4 to %5")
                 .arg(name, QString::number(m_position), quoted(word), QString::number(minimum),
                      QString::number(maximum)));
        return 0.0;
    }
    return *number;
}

size_t LineReader::count(const QString& name)
{
    const double wordsAfter = left() == 0 ? 0.0 : static_cast<double>(left() - 1);
    const double value = number(name, 0.0, wordsAfter);
    if (value != std::floor(value))
        fail(tr("%1 is %2, not a whole number").arg(name, QString::number(value)));
    return m_isBad ? 0 : static_cast<size_t>(value);
}

simulation::Time LineReader::time(const QString& name, simulation::Time unit)
{
    const auto nanoseconds = static_cast<double>(unit.count());
    const double value = number(name, -latest / nanoseconds, latest / nanoseconds);
    return simulation::Time(std::llround(value * nanoseconds));
}

std::vector<float> LineReader::ranges(size_t count, double metres)
{
    std::vector<float> ranges;
    if (count > left())
        skip(count);
    if (m_isBad)
        return ranges;
    ranges.reserve(count);
    while (ranges.size() < count && !m_isBad)
        ranges.push_back(
            static_cast<float>(number(tr("a range"), 0.0, farthest / metres) * metres));
    return ranges;
}

void LineReader::fail(const QString& reason)
{
    if (!m_isBad)
        *m_reason = reason;
    m_isBad = true;
}

} // namespace robot::recording
