// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_LITERAL_H
#define ROSBRIDGE_PROTOCOL_LITERAL_H

#include <QLatin1String>

#include <cstddef>

namespace rosbridge::protocol {

/// For constants: Qt 5's constructor without a size calls strlen(), which clang leaves to run time.
constexpr QLatin1String operator""_latin1(const char* text, std::size_t size)
{
    return QLatin1String(text, static_cast<int>(size));
}

} // namespace rosbridge::protocol

#endif
