// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/FloatText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace host::workbench::values {

QByteArray floatText(float value)
{
    if (std::isnan(value))
        return "nan";              // of whatever sign
    std::array<char, 32> digits{}; // the longest number has 15
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), static_cast<int>(end - digits.data())};
}

} // namespace host::workbench::values
