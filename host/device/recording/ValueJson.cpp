// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/recording/ValueJson.h"

#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/trace/ClassName.h"
#include "host/device/variables/Latin1.h"
#include "host/device/variables/StoredValue.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/StringList.h"
#include "olm/core/Vector.h"
#include "olm/core/variant/Held.h"
#include "rosbridge/protocol/Codec.h"
#include "rosbridge/protocol/JsonWriter.h"

#include <QCborValue>
#include <QJsonArray>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace host::device::recording {

namespace {

using olm::core::LaserScanMessage;
using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::held;
using olm::core::variant::Variant;

const QString typeKey = QStringLiteral("type");
const QString valueKey = QStringLiteral("value");
const QString classKey = QStringLiteral("class");
const QLatin1String emptyType("empty");
const QLatin1String unknownType("unknown");

// The texts of what JSON has no number for are those of a device's file.
const QLatin1String notANumber("NaN");
const QLatin1String infinite("Infinity");
const QLatin1String negative("-Infinity");
const QLatin1String negativeZero("-0");

/// The shortest text that reads as the same number.
template <class Number>
void write(QByteArray& json, Number number)
{
    if constexpr (std::is_floating_point_v<Number>) {
        const bool isNegative = std::signbit(number);
        const QLatin1String text = std::isnan(number)    ? notANumber
                                   : !std::isinf(number) ? negativeZero
                                   : isNegative          ? negative
                                                         : infinite;
        if (!std::isfinite(number) || (number == 0 && isNegative)) {
            json += '"';
            json.append(text.data(), static_cast<int>(text.size()));
            json += '"';
            return;
        }
    }
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
    json.append(buffer, static_cast<int>(result.ptr - buffer));
}

void write(QByteArray& json, bool value)
{
    json += value ? "true" : "false";
}

void write(QByteArray& json, const QString& text)
{
    json += ValueJson::quoted(text);
}

void write(QByteArray& json, const std::string& text)
{
    write(json, variables::fromLatin1(text));
}

void write(QByteArray& json, SimulationDirectExecRole role)
{
    write(json, static_cast<unsigned int>(role));
}

template <class Iterator>
void writeArray(QByteArray& json, Iterator begin, Iterator end)
{
    json += '[';
    for (Iterator each = begin; each != end; ++each) {
        if (each != begin)
            json += ',';
        write(json, *each);
    }
    json += ']';
}

void write(QByteArray& json, const StringList& list)
{
    writeArray(json, list.begin(), list.end());
}

template <class T>
void write(QByteArray& json, const Vector<T>& vector)
{
    writeArray(json, vector.data(), vector.data() + vector.size());
}

/// Of a scan, in their order: @p use gets each field with its name.
template <class Scan, class Use>
void forEachField(Scan& scan, const Use& use)
{
    use("sequenceNumber", scan.sequenceNumber);
    use("timeStamp", scan.timeStamp);
    use("frameId", scan.frameId);
    use("minimumAngle", scan.minimumAngle);
    use("maximumAngle", scan.maximumAngle);
    use("angleIncrement", scan.angleIncrement);
    use("timeIncrement", scan.timeIncrement);
    use("scanTime", scan.scanTime);
    use("minimumRange", scan.minimumRange);
    use("maximumRange", scan.maximumRange);
    use("ranges", scan.ranges);
    use("intensities", scan.intensities);
}

void write(QByteArray& json, const LaserScanMessage& scan)
{
    char separator = '{';
    forEachField(scan, [&](const char* name, const auto& field) {
        json += separator;
        json += '"';
        json += name;
        json += "\":";
        write(json, field);
        separator = ',';
    });
    json += '}';
}

/// Of a type that a device's file has as well.
template <class T>
bool readStored(const char* type, const QJsonValue& json, T& value)
{
    const auto stored = variables::fromStored({{typeKey, QLatin1String(type)}, {valueKey, json}});
    bool isGood = false;
    if (stored)
        value = stored->get<T>(&isGood);
    return isGood;
}

bool read(const QJsonValue& json, bool& value)
{
    return readStored("bool", json, value);
}

bool read(const QJsonValue& json, int& value)
{
    return readStored("int", json, value);
}

bool read(const QJsonValue& json, unsigned int& value)
{
    return readStored("unsigned int", json, value);
}

bool read(const QJsonValue& json, std::string& value)
{
    return readStored("string", json, value);
}

bool read(const QJsonValue& json, StringList& value)
{
    return readStored("string list", json, value);
}

bool read(const QJsonValue& json, Vector<unsigned int>& value)
{
    return readStored("unsigned int vector", json, value);
}

bool read(const QJsonValue& json, double& value)
{
    using Limits = std::numeric_limits<double>;
    const QString text = json.toString();
    value = text == notANumber     ? Limits::quiet_NaN()
            : text == infinite     ? Limits::infinity()
            : text == negative     ? -Limits::infinity()
            : text == negativeZero ? -0.0
                                   : json.toDouble();
    return json.isDouble() || !std::isfinite(value) || std::signbit(value);
}

bool read(const QJsonValue& json, float& value)
{
    double number = 0;
    const bool isGood = read(json, number);
    value = rosbridge::protocol::toFloat(number);
    return isGood;
}

bool read(const QJsonValue& json, Vector<float>& vector)
{
    const QJsonArray array = json.toArray();
    vector.resize(static_cast<unsigned int>(array.size()));
    bool isGood = json.isArray();
    for (int i = 0; i < array.size(); ++i)
        isGood = read(array.at(i), vector[i]) && isGood;
    return isGood;
}

bool read(const QJsonValue& json, QString& value)
{
    value = json.toString();
    return json.isString();
}

bool read(const QJsonValue& json, SimulationDirectExecRole& value)
{
    unsigned int number = 0;
    const bool isGood = read(json, number);
    value = static_cast<SimulationDirectExecRole>(number);
    return isGood;
}

bool read(const QJsonValue& json, LaserScanMessage& scan)
{
    const QJsonObject fields = json.toObject();
    bool isGood = json.isObject();
    forEachField(scan, [&](const char* name, auto& field) {
        isGood = isGood && read(fields.value(QLatin1String(name)), field);
    });
    return isGood;
}

/// One line of the table of types.
struct Type
{
    const char* name;
    bool (*holds)(const Variant& value);
    void (*write)(QByteArray& json, const Variant& value);
    std::optional<Variant> (*read)(const QJsonValue& json);
};

template <class T>
Type typeNamed(const char* name)
{
    return {name, [](const Variant& value) { return held<T>(value.any()) != nullptr; },
            [](QByteArray& json, const Variant& value) {
                recording::write(json, *held<T>(value.any()));
            },
            [](const QJsonValue& json) -> std::optional<Variant> {
                T value{};
                return recording::read(json, value) ? std::optional<Variant>(value) : std::nullopt;
            }};
}

const Type types[] = {
    typeNamed<bool>("bool"),
    typeNamed<int>("int"),
    typeNamed<unsigned int>("unsigned int"),
    typeNamed<float>("float"),
    typeNamed<double>("double"),
    typeNamed<std::string>("string"),
    typeNamed<QString>("text"),
    typeNamed<StringList>("string list"),
    typeNamed<Vector<float>>("float vector"),
    typeNamed<Vector<unsigned int>>("unsigned int vector"),
    typeNamed<LaserScanMessage>("scan"),
    typeNamed<SimulationDirectExecRole>("command"),
};

QByteArray head(QLatin1String type)
{
    return R"("type":")" + QByteArray(type.data(), static_cast<int>(type.size())) + '"';
}

} // namespace

QByteArray ValueJson::quoted(const QString& text)
{
    rosbridge::protocol::JsonWriter writer;
    writer.write(QCborValue(text));
    return writer.text();
}

void ValueJson::append(QByteArray& json, const Variant& value)
{
    if (value.isEmpty()) {
        json += head(emptyType);
        return;
    }
    for (const Type& type : types) {
        if (!type.holds(value))
            continue;
        json += head(QLatin1String(type.name)) + R"(,"value":)";
        return type.write(json, value);
    }
    const auto* const unknown = held<UnknownValue>(value.any());
    json += head(unknownType) + R"(,"class":)" +
            quoted(unknown ? unknown->type : trace::className(value.any().type()));
}

std::optional<ValueJson::Variant> ValueJson::read(const QJsonObject& json, QString* error)
{
    const QString name = json.value(typeKey).toString();
    if (name == emptyType)
        return Variant();
    if (name == unknownType)
        return UnknownValue{json.value(classKey).toString()};
    for (const Type& type : types) {
        if (name != QLatin1String(type.name))
            continue;
        auto value = type.read(json.value(valueKey));
        if (!value)
            *error = tr("a value is not of the type \"%1\" that it names").arg(name);
        return value;
    }
    *error = tr("a value has no type that this program knows: \"%1\"").arg(name);
    return std::nullopt;
}

} // namespace host::device::recording
