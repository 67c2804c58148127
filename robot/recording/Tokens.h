// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_TOKENS_H
#define ROBOT_RECORDING_TOKENS_H

#include <QString>

#include <optional>
#include <string_view>
#include <vector>

namespace robot::recording {

/// The words of one line, which must outlive them.
using Tokens = std::vector<std::string_view>;

/// Splits at blanks, tabs and line ends of any kind. No word is empty.
Tokens splitLine(std::string_view line);

/// A whole word as a finite number, written the C way whatever the locale; anything else is
/// nothing.
std::optional<double> toNumber(std::string_view word);

/// A word of any origin, fit to be shown: short and in quotation marks.
QString quoted(std::string_view word);

} // namespace robot::recording

#endif
