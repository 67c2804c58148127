// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/JsonWriter.h"

#include "rosbridge/protocol/TypedArray.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QString>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

namespace rosbridge::protocol {

void JsonWriter::write(const QCborValue& value)
{
    switch (value.type()) {
    case QCborValue::True:
        m_text += "true";
        break;
    case QCborValue::False:
        m_text += "false";
        break;
    case QCborValue::Integer:
        writeNumber(value.toInteger());
        break;
    case QCborValue::Double:
        writeNumber(value.toDouble());
        break;
    case QCborValue::String:
        writeString(value.toString());
        break;
    case QCborValue::ByteArray:
        m_text += '"';
        m_text += value.toByteArray().toBase64();
        m_text += '"';
        break;
    case QCborValue::Array:
        writeArray(value.toArray());
        break;
    case QCborValue::Map:
        writeMap(value.toMap());
        break;
    case QCborValue::Tag:
        writeTypedArray(value);
        break;
    default:
        m_text += "null";
    }
}

void JsonWriter::writeString(const QString& string)
{
    m_text += '"';
    if (string.isValidUtf16()) {
        writeUtf8(string.toUtf8());
    } else {
        for (const QChar unit : string) // UTF-8 has no half of a surrogate pair
            writeEscape(unit.unicode());
    }
    m_text += '"';
}

void JsonWriter::writeUtf8(const QByteArray& utf8)
{
    const auto isEscaped = [](char c) {
        return c == '"' || c == '\\' || static_cast<unsigned char>(c) < ' ';
    };
    for (const char* at = utf8.cbegin(); at != utf8.cend();) {
        const char* const next = std::find_if(at, utf8.cend(), isEscaped);
        m_text.append(at, static_cast<int>(next - at));
        if (next == utf8.cend())
            break;
        if (*next == '"' || *next == '\\')
            m_text.append('\\').append(*next);
        else
            writeEscape(static_cast<ushort>(*next));
        at = next + 1;
    }
}

void JsonWriter::writeEscape(ushort utf16)
{
    m_text.append("\\u").append(QByteArray::number(utf16, 16).rightJustified(4, '0'));
}

void JsonWriter::writeArray(const QCborArray& array)
{
    m_text += '[';
    for (const QCborValue element : array) {
        write(element);
        m_text += ',';
    }
    close(']');
}

void JsonWriter::writeMap(const QCborMap& map)
{
    m_text += '{';
    for (auto field = map.cbegin(); field != map.cend(); ++field) {
        writeString(field.key().toString());
        m_text += ':';
        write(field.value());
        m_text += ',';
    }
    close('}');
}

void JsonWriter::writeTypedArray(const QCborValue& value)
{
    const std::optional<TypedArray> numbers = TypedArray::read(value, nullptr);
    if (!numbers) {
        m_text += "null";
        return;
    }
    m_text += '[';
    numbers->forEach([this](auto number) {
        writeNumber(number);
        m_text += ',';
    });
    close(']');
}

template <typename Number>
void JsonWriter::writeNumber(Number number)
{
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(number)) {
            m_text += "null";
            return;
        }
    }
    std::array<char, 32> digits{}; // the longest number has 24
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    m_text.append(digits.data(), static_cast<int>(end - digits.data()));
}

/// What is open, in place of the comma after its last element.
void JsonWriter::close(char bracket)
{
    if (m_text.endsWith(','))
        m_text.back() = bracket;
    else
        m_text += bracket;
}

} // namespace rosbridge::protocol
