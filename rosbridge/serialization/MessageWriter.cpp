// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/serialization/MessageWriter.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/protocol/TypedArray.h"
#include "rosbridge/serialization/ArrayTag.h"

#include <QCborArray>
#include <QtEndian>

#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

namespace rosbridge::serialization {

using protocol::kindOf;
using protocol::TypedArray;

std::optional<QByteArray> MessageWriter::write(const MessageDefinition& definition,
                                               const QCborMap& message, QString* error)
{
    MessageWriter writer(definition);
    writer.message(definition.root(), message);
    if (writer.m_fault.isEmpty())
        return writer.m_bytes;
    if (error)
        *error = tr("the field \"%1\" %2").arg(writer.m_path.join(u'.'), writer.m_fault);
    return std::nullopt;
}

void MessageWriter::message(const MessageDefinition::Type& type, const QCborMap& message)
{
    for (const Field& field : type.fields) {
        const QCborValue value = message.value(field.name);
        const bool isRos1Only =
            type.name == QLatin1String("std_msgs/Header") && field.name == QLatin1String("seq");
        if (value.isUndefined() && isRos1Only)
            put(quint32{0});
        else if (value.isUndefined())
            fail(tr("is missing"));
        else if (field.arrayLength == MessageDefinition::noArray)
            one(field, value);
        else
            array(field, value);
        if (!m_fault.isEmpty()) {
            m_path.prepend(field.name);
            return;
        }
    }
}

void MessageWriter::array(const Field& field, const QCborValue& value)
{
    if (field.kind == Kind::UInt8 && value.isByteArray())
        return bytes(field, value.toByteArray());
    if (field.kind == Kind::UInt8 && value.isString()) {
        const auto decoded = QByteArray::fromBase64Encoding(
            value.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        return decoded ? bytes(field, decoded.decoded) : fail(tr("is text, but not base64"));
    }
    if (value.isTag())
        return numbers(field, value);
    if (!value.isArray())
        return fail(tr("is %1, not an array").arg(kindOf(value)));
    const QCborArray elements = value.toArray();
    length(field, elements.size());
    for (qsizetype i = 0; i < elements.size() && m_fault.isEmpty(); ++i) {
        one(field, elements.at(i));
        if (!m_fault.isEmpty())
            m_path.prepend(QString::number(i));
    }
}

/// Those of an array as they are.
void MessageWriter::bytes(const Field& field, const QByteArray& bytes)
{
    length(field, bytes.size() / MessageDefinition::size(field.kind));
    m_bytes.append(bytes);
}

void MessageWriter::numbers(const Field& field, const QCborValue& value)
{
    const auto tag = arrayTag(field.kind);
    QString why;
    const std::optional<TypedArray> array = TypedArray::read(value, &why);
    if (!array)
        return fail(tr("cannot be read: %1").arg(why));
    if (!tag)
        return fail(tr("is an array of numbers, not of \"%1\"").arg(field.type));
    if (static_cast<quint64>(value.tag()) == *tag)
        return bytes(field, value.taggedValue().toByteArray());
    length(field, array->size());
    int index = 0;
    array->forEach([&](auto element) {
        if (!m_fault.isEmpty())
            return;
        if constexpr (std::is_integral_v<decltype(element)>)
            number(field.kind, static_cast<qint64>(element));
        else
            number(field.kind, static_cast<double>(element));
        if (!m_fault.isEmpty())
            m_path.prepend(QString::number(index));
        ++index;
    });
}

/// One of any length begins with that.
void MessageWriter::length(const Field& field, qint64 count)
{
    if (field.arrayLength == MessageDefinition::anyLength)
        put(static_cast<quint32>(count));
    else if (count != field.arrayLength)
        fail(tr("has %1 elements, not %2").arg(count).arg(field.arrayLength));
}

void MessageWriter::one(const Field& field, const QCborValue& value)
{
    switch (field.kind) {
    case Kind::Bool:
        return value.isBool() ? put(static_cast<quint8>(value.toBool()))
                              : fail(tr("is %1, not true or false").arg(kindOf(value)));
    case Kind::String:
        return text(value);
    case Kind::Time:
        return time(value, false);
    case Kind::Duration:
        return time(value, true);
    case Kind::Message:
        return value.isMap() ? message(m_definition.type(field), value.toMap())
                             : fail(tr("is %1, not an object").arg(kindOf(value)));
    default:
        return number(field.kind, value);
    }
}

void MessageWriter::text(const QCborValue& value)
{
    if (!value.isString())
        return fail(tr("is %1, not text").arg(kindOf(value)));
    const QByteArray utf8 = value.toString().toUtf8();
    put(static_cast<quint32>(utf8.size()));
    m_bytes.append(utf8);
}

void MessageWriter::time(const QCborValue& value, bool isSigned)
{
    if (!value.isMap())
        return fail(tr("is %1, not a time").arg(kindOf(value)));
    const QCborMap parts = value.toMap();
    if (isSigned) {
        timePart<qint32>(parts, "secs", "sec");
        timePart<qint32>(parts, "nsecs", "nanosec");
    } else {
        timePart<quint32>(parts, "secs", "sec");
        timePart<quint32>(parts, "nsecs", "nanosec");
    }
}

template <typename Number>
void MessageWriter::timePart(const QCborMap& time, const char* name, const char* ros2Name)
{
    const bool isRos2 = !time.contains(QLatin1String(name));
    const QCborValue value = time.value(QLatin1String(isRos2 ? ros2Name : name));
    if (!m_fault.isEmpty())
        return;
    if (value.isUndefined())
        fail(tr("is missing"));
    else
        number(std::is_signed_v<Number> ? Kind::Int32 : Kind::UInt32, value);
    if (!m_fault.isEmpty())
        m_path.prepend(QLatin1String(name));
}

/// Null, which JSON has in its place, is NaN.
void MessageWriter::number(Kind kind, const QCborValue& value)
{
    const bool isFloat = kind == Kind::Float32 || kind == Kind::Float64;
    if (!value.isInteger() && !value.isDouble() && !(isFloat && value.isNull()))
        return fail(tr("is %1, not a number").arg(kindOf(value)));
    const double number =
        value.isNull() ? std::numeric_limits<double>::quiet_NaN() : value.toDouble();
    switch (kind) {
    case Kind::Int8:
        return whole<qint8>(number);
    case Kind::UInt8:
        return whole<quint8>(number);
    case Kind::Int16:
        return whole<qint16>(number);
    case Kind::UInt16:
        return whole<quint16>(number);
    case Kind::Int32:
        return whole<qint32>(number);
    case Kind::UInt32:
        return whole<quint32>(number);
    case Kind::Int64:
        return value.isInteger() ? put(value.toInteger()) : whole<qint64>(number);
    case Kind::UInt64:
        return value.isInteger() && value.toInteger() >= 0
                   ? put(static_cast<quint64>(value.toInteger()))
                   : whole<quint64>(number);
    case Kind::Float32:
        return put(protocol::toFloat(number));
    default:
        return put(number);
    }
}

/// A whole number may come as a double.
template <typename Number>
void MessageWriter::whole(double number)
{
    constexpr auto least = static_cast<double>(std::numeric_limits<Number>::min());
    // The largest of 64 bits is no double; the next one is beyond the range.
    constexpr auto half = static_cast<Number>(std::numeric_limits<Number>::max() / 2 + 1);
    constexpr double end = 2.0 * static_cast<double>(half);
    if (!(number >= least && number < end) || std::trunc(number) != number)
        return fail(tr("is %1, not a whole number from %2 to %3")
                        .arg(number)
                        .arg(std::numeric_limits<Number>::min())
                        .arg(std::numeric_limits<Number>::max()));
    put(static_cast<Number>(number));
}

template <typename Number>
void MessageWriter::put(Number number)
{
    std::array<char, sizeof(Number)> bytes{};
    qToLittleEndian<Number>(number, bytes.data());
    m_bytes.append(bytes.data(), static_cast<int>(bytes.size()));
}

void MessageWriter::fail(const QString& fault)
{
    if (m_fault.isEmpty())
        m_fault = fault;
}

} // namespace rosbridge::serialization
