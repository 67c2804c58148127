// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/core/variant/Variant.h"

#include "olm/core/variant/Held.h"

#include <QString>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

namespace olm {
namespace core {
namespace variant {

namespace {

template <class... Types>
std::optional<long long> heldInteger(const boost::any& any)
{
    std::optional<long long> number;
    const auto take = [&](const auto* value) {
        // An unsigned value beyond the signed range wraps to a negative one: not representable.
        if (value && (*value < 1 || static_cast<long long>(*value) > 0))
            number = static_cast<long long>(*value);
    };
    (take(held<Types>(any)), ...);
    return number;
}

std::optional<double> heldReal(const boost::any& any)
{
    if (const auto* value = held<double>(any))
        return *value;
    if (const auto* value = held<float>(any))
        return static_cast<double>(*value);
    return std::nullopt;
}

std::optional<std::string> heldText(const boost::any& any)
{
    if (const auto* value = held<std::string>(any))
        return *value;
    if (const auto* value = held<QString>(any))
        return value->toLatin1().toStdString();
    return std::nullopt;
}

// What std::from_chars reads is the same in every locale.
template <class Number>
std::optional<Number> parsed(const std::string& text)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return number;
}

template <class Number>
std::string printed(Number number)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, result.ptr);
}

std::optional<long long> toInteger(const boost::any& any)
{
    if (const auto integer =
            heldInteger<bool, char, signed char, unsigned char, short, unsigned short, int,
                        unsigned int, long, unsigned long, long long, unsigned long long>(any))
        return integer;
    if (const auto text = heldText(any))
        return parsed<long long>(*text);
    if (const auto real = heldReal(any)) {
        // Beyond this a double leaves out integers, and no caller asks for more than 32 bits.
        const double bound = 9007199254740992.0;
        if (std::abs(*real) <= bound)
            return static_cast<long long>(*real);
    }
    return std::nullopt;
}

template <class Integer>
std::optional<Integer> toIntegerOf(const boost::any& any)
{
    const auto integer = toInteger(any);
    if (!integer || *integer < std::numeric_limits<Integer>::min() ||
        *integer > std::numeric_limits<Integer>::max())
        return std::nullopt;
    return static_cast<Integer>(*integer);
}

template <class T>
T valueOrDefault(const std::optional<T>& value, bool* ok)
{
    if (ok)
        *ok = value.has_value();
    return value.value_or(T());
}

} // namespace

unsigned int Id::g_id = 0;

const boost::any& Variant::any() const
{
    static const boost::any none;
    return m_value ? *m_value : none;
}

int Variant::toInt(bool* ok) const
{
    return valueOrDefault(toIntegerOf<int>(any()), ok);
}

unsigned int Variant::toUInt(bool* ok) const
{
    return valueOrDefault(toIntegerOf<unsigned int>(any()), ok);
}

bool Variant::toBool(bool* ok) const
{
    std::optional<bool> value;
    const auto text = heldText(any());
    if (text == "true" || text == "false")
        value = text == "true";
    else if (const auto real = heldReal(any()); real && !std::isnan(*real))
        value = *real != 0;
    else if (const auto integer = toInteger(any()))
        value = *integer != 0;
    return valueOrDefault(value, ok);
}

std::string Variant::toString(bool* ok) const
{
    std::optional<std::string> value = heldText(any());
    if (const auto* boolean = held<bool>(any()))
        value = *boolean ? "true" : "false";
    else if (const auto* single = held<float>(any()))
        value = printed(*single);
    else if (const auto* real = held<double>(any()))
        value = printed(*real);
    else if (const auto integer = toInteger(any()); integer && !value)
        value = printed(*integer);
    return valueOrDefault(value, ok);
}

StringList Variant::toStringList(bool* ok) const
{
    std::optional<StringList> value;
    if (const auto* list = held<StringList>(any())) {
        value = *list;
    } else if (const auto text = heldText(any())) {
        value.emplace().append(*text);
    }
    return valueOrDefault(value, ok);
}

} // namespace variant
} // namespace core
} // namespace olm
