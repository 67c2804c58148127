// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/StoredValue.h"

#include "host/device/variables/Latin1.h"

#include "olm/core/StringList.h"
#include "olm/core/Vector.h"

#include <QJsonArray>
#include <QJsonValue>

#include <cmath>
#include <limits>
#include <string>

namespace host::device::variables {

namespace {

using olm::core::StringList;
using olm::core::variant::Variant;
using Floats = olm::core::Vector<float>;
using Numbers = olm::core::Vector<unsigned int>;

const QString typeKey = QStringLiteral("type");
const QString valueKey = QStringLiteral("value");

QJsonValue encode(bool value)
{
    return value;
}

QJsonValue encode(int value)
{
    return value;
}

QJsonValue encode(unsigned int value)
{
    return static_cast<qint64>(value);
}

QJsonValue encode(const std::string& value)
{
    return fromLatin1(value);
}

QJsonValue encode(float value)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
    if (value == 0 && std::signbit(value))
        return QStringLiteral("-0");
    return static_cast<double>(value);
}

QJsonValue encode(const StringList& list)
{
    QJsonArray array;
    for (const std::string& text : list)
        array.append(encode(text));
    return array;
}

template <class T>
QJsonValue encode(const olm::core::Vector<T>& vector)
{
    QJsonArray array;
    for (unsigned int i = 0; i < vector.size(); ++i)
        array.append(encode(vector.data()[i]));
    return array;
}

bool decode(const QJsonValue& json, bool& value)
{
    value = json.toBool();
    return json.isBool();
}

template <class Integer>
bool decodeInteger(const QJsonValue& json, Integer& value)
{
    // A double holds every integer of 32 bits.
    const double number = json.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(number >= std::numeric_limits<Integer>::min() &&
          number <= std::numeric_limits<Integer>::max() && number == std::floor(number)))
        return false;
    value = static_cast<Integer>(number);
    return true;
}

bool decode(const QJsonValue& json, int& value)
{
    return decodeInteger(json, value);
}

bool decode(const QJsonValue& json, unsigned int& value)
{
    return decodeInteger(json, value);
}

bool decode(const QJsonValue& json, std::string& value)
{
    const QString text = json.toString();
    value = toLatin1(text);
    return json.isString() && fromLatin1(value) == text; // other characters than Latin-1 has
}

bool decode(const QJsonValue& json, float& value)
{
    using Limits = std::numeric_limits<float>;
    if (json.isDouble()) {
        const double number = json.toDouble();
        if (std::abs(number) > static_cast<double>(Limits::max()))
            return false;
        value = static_cast<float>(number);
        return true;
    }
    const QString text = json.toString();
    if (text == QLatin1String("NaN"))
        value = Limits::quiet_NaN();
    else if (text == QLatin1String("Infinity"))
        value = Limits::infinity();
    else if (text == QLatin1String("-Infinity"))
        value = -Limits::infinity();
    else if (text == QLatin1String("-0"))
        value = -0.0F;
    else
        return false;
    return true;
}

template <class List, class Element>
bool decodeList(const QJsonValue& json, List& list)
{
    const QJsonArray array = json.toArray();
    for (const QJsonValue item : array) {
        Element element{};
        if (!decode(item, element))
            return false;
        list.append(element);
    }
    return json.isArray();
}

bool decode(const QJsonValue& json, StringList& list)
{
    return decodeList<StringList, std::string>(json, list);
}

template <class T>
bool decode(const QJsonValue& json, olm::core::Vector<T>& vector)
{
    return decodeList<olm::core::Vector<T>, T>(json, vector);
}

/// One line of the table of types that are stored.
struct Type
{
    const char* name;
    std::optional<QJsonValue> (*encoded)(const Variant& value);
    std::optional<Variant> (*decoded)(const QJsonValue& json);
};

template <class T>
Type typeNamed(const char* name)
{
    return {name,
            [](const Variant& value) -> std::optional<QJsonValue> {
                bool ok = false;
                const T held = value.get<T>(&ok);
                return ok ? std::optional<QJsonValue>(encode(held)) : std::nullopt;
            },
            [](const QJsonValue& json) -> std::optional<Variant> {
                T value{};
                return decode(json, value) ? std::optional<Variant>(value) : std::nullopt;
            }};
}

const Type types[] = {
    typeNamed<bool>("bool"),
    typeNamed<int>("int"),
    typeNamed<unsigned int>("unsigned int"),
    typeNamed<std::string>("string"),
    typeNamed<StringList>("string list"),
    typeNamed<Floats>("float vector"),
    typeNamed<Numbers>("unsigned int vector"),
};

const Type* typeOf(const QJsonObject& entry)
{
    const QString name = entry.value(typeKey).toString();
    for (const Type& type : types) {
        if (name == QLatin1String(type.name))
            return &type;
    }
    return nullptr;
}

} // namespace

std::optional<QJsonObject> toStored(const Variant& value)
{
    for (const Type& type : types) {
        if (const auto json = type.encoded(value))
            return QJsonObject{{typeKey, QLatin1String(type.name)}, {valueKey, *json}};
    }
    return std::nullopt;
}

bool isKnownType(const QJsonObject& entry)
{
    return typeOf(entry) != nullptr;
}

std::optional<Variant> fromStored(const QJsonObject& entry)
{
    return typeOf(entry)->decoded(entry.value(valueKey));
}

} // namespace host::device::variables
