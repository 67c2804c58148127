// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/Tokens.h"

#include <charconv>
#include <cmath>

namespace robot::recording {

namespace {

constexpr std::string_view blanks = " \t\r\n";

} // namespace

Tokens splitLine(std::string_view line)
{
    Tokens words;
    for (size_t start = line.find_first_not_of(blanks); start != std::string_view::npos;) {
        const size_t end = line.find_first_of(blanks, start);
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(blanks, end);
    }
    return words;
}

std::optional<double> toNumber(std::string_view word)
{
    double number = 0.0;
    const char* end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || rest != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

QString quoted(std::string_view word)
{
    constexpr size_t longest = 30;
    QString text;
    for (const char c : word.substr(0, longest))
        text += c >= ' ' && c <= '~' ? QLatin1Char(c) : QLatin1Char('?');
    if (word.size() > longest)
        text += QStringLiteral("...");
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace robot::recording
