// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/recording/CallText.h"

#include "host/device/connection/MessageRole.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/recording/KindName.h"
#include "host/device/recording/ValueJson.h"
#include "host/device/trace/ClassName.h"
#include "host/device/variables/Latin1.h"
#include "olm/core/variant/Held.h"

#include <QJsonArray>

namespace host::device::recording {

using olm::core::variant::Variant;
using trace::Argument;
using trace::Arguments;
using trace::PluginCall;

namespace {

constexpr double mostNumber = 9007199254740992.0; // of those that JSON's numbers tell apart

struct RoleName
{
    unsigned int number;
    const char* name;
};

// Of what the host sends and of what it carries out; the numbers of one are none of the other.
const RoleName messageNames[] = {
    {connection::baseLogLine, "base log line"},
    {connection::manipulatorLogLine, "manipulator log line"},
    {connection::laserLogLine, "laser log line"},
    {connection::emphasisedBaseLogLine, "emphasised base log line"},
    {connection::connectionStateMessage, "connection state"},
};
const RoleName commandNames[] = {
    {connection::laserStartText, "laser start text"},
    {connection::currentConnectionState, "connection state"},
    {connection::toggleTorque, "toggle torque"},
    {connection::storePosition, "store position"},
    {connection::enableFirstLine, "enable line 1"},
    {connection::enableFirstLine + 1, "enable line 2"},
    {connection::enableFirstLine + 2, "enable line 3"},
};

template <std::size_t size>
const char* nameOf(const RoleName (&names)[size], unsigned int number)
{
    for (const RoleName& role : names) {
        if (role.number == number)
            return role.name;
    }
    return nullptr;
}

/// What the number of a message or command means; null where it is none, or means nothing here.
const char* meaningOf(const Argument& argument)
{
    using olm::core::variant::held;
    if (const auto* command = held<SimulationDirectExecRole>(argument.value.any()))
        return nameOf(commandNames, *command);
    const auto* const message = held<int>(argument.value.any());
    return message && argument.name == "role"
               ? nameOf(messageNames, static_cast<unsigned int>(*message))
               : nullptr;
}

void append(QByteArray& json, const char* name, const QString& text)
{
    json += ",\"";
    json += name;
    json += "\":" + ValueJson::quoted(text);
}

void appendValue(QByteArray& json, const Variant& value)
{
    json += '{';
    ValueJson::append(json, value);
    json += '}';
}

void append(QByteArray& json, const Argument& argument)
{
    json += '{';
    if (argument.kind)
        json += R"("kind":")" + QByteArray(kindName(*argument.kind)) + "\",";
    if (!argument.name.empty()) {
        json += R"("name":)" + ValueJson::quoted(variables::fromLatin1(argument.name));
        json += ',';
    }
    ValueJson::append(json, argument.value);
    if (const char* const meaning = meaningOf(argument))
        append(json, "means", QString::fromLatin1(meaning));
    json += '}';
}

void appendArguments(QByteArray& json, const Arguments& arguments)
{
    json += ",\"arguments\":";
    char separator = '[';
    for (const Argument& argument : arguments) {
        json += separator;
        append(json, argument);
        separator = ',';
    }
    json += arguments.empty() ? "[]" : "]";
}

/// Who calls which function of whom.
QByteArray head(const PluginCall& call, const char* direction)
{
    QByteArray json = "{\"call\":" + QByteArray::number(call.number) +
                      ",\"depth\":" + QByteArray::number(call.depth) + ",\"to\":\"" + direction +
                      R"(","function":")" + call.name + '"';
    if (call.widgetClass)
        append(json, "widget", trace::className(*call.widgetClass));
    if (!call.widgetName.isEmpty())
        append(json, "object", call.widgetName);
    return json;
}

QByteArray tail(const PluginCall& call)
{
    QByteArray json = ",\"ns\":" + QByteArray::number(qint64{call.duration->count()});
    if (call.result) {
        json += ",\"result\":";
        appendValue(json, *call.result);
    }
    if (call.hasThrown)
        json += ",\"threw\":true";
    return json + '}';
}

/// Nothing where it is no such number.
std::optional<quint64> numberIn(const QJsonValue& json)
{
    const double number = json.toDouble(-1);
    return number >= 0 && number <= mostNumber && number == static_cast<double>(quint64(number))
               ? std::optional<quint64>(number)
               : std::nullopt;
}

std::optional<Argument> readArgument(const QJsonObject& json, QString* error)
{
    const auto value = ValueJson::read(json, error);
    if (!value)
        return std::nullopt;
    return Argument{variables::toLatin1(json.value(QLatin1String("name")).toString()), *value,
                    kindNamed(json.value(QLatin1String("kind")).toString())};
}

} // namespace

QByteArray CallText::begin(const PluginCall& call, std::optional<quint64> argumentsOf)
{
    QByteArray json = head(call, "plugin");
    if (argumentsOf)
        json += ",\"arguments\":" + QByteArray::number(*argumentsOf);
    else
        appendArguments(json, *call.arguments);
    return json + '}';
}

QByteArray CallText::end(const PluginCall& call)
{
    return "{\"end\":" + QByteArray::number(call.number) + tail(call);
}

QByteArray CallText::whole(const PluginCall& call)
{
    QByteArray json = head(call, "host");
    appendArguments(json, *call.arguments);
    return json + tail(call);
}

std::optional<RecordedCall> CallText::read(const QJsonObject& json, QString* error)
{
    const bool isEnd = json.contains(QLatin1String("end"));
    const auto number = numberIn(json.value(QLatin1String(isEnd ? "end" : "call")));
    if (!number) {
        *error = tr("a call has no number");
        return std::nullopt;
    }
    RecordedCall call;
    call.number = *number;
    const bool isToPlugin = json.value(QLatin1String("to")) == QLatin1String("plugin");
    call.part = isEnd        ? RecordedCall::Part::End
                : isToPlugin ? RecordedCall::Part::Begin
                             : RecordedCall::Part::Whole;
    call.direction =
        isEnd || isToPlugin ? PluginCall::Direction::ToPlugin : PluginCall::Direction::ToHost;
    call.depth = json.value(QLatin1String("depth")).toInt();
    call.function = json.value(QLatin1String("function")).toString();
    call.widgetClass = json.value(QLatin1String("widget")).toString();
    call.widgetName = json.value(QLatin1String("object")).toString();
    call.duration = std::chrono::nanoseconds(numberIn(json.value(QLatin1String("ns"))).value_or(0));
    call.hasThrown = json.value(QLatin1String("threw")).toBool();
    if (const QJsonValue result = json.value(QLatin1String("result")); result.isObject()) {
        call.result = ValueJson::read(result.toObject(), error);
        if (!call.result)
            return std::nullopt;
    }
    const QJsonValue arguments = json.value(QLatin1String("arguments"));
    call.argumentsOf = numberIn(arguments);
    if (isEnd || call.argumentsOf)
        return call;
    if (call.function.isEmpty() || !arguments.isArray()) {
        *error = tr("the call %1 has no function or no arguments").arg(call.number);
        return std::nullopt;
    }
    auto list = std::make_shared<Arguments>();
    const QJsonArray array = arguments.toArray();
    for (const QJsonValue each : array) {
        const auto argument = readArgument(each.toObject(), error);
        if (!argument)
            return std::nullopt;
        list->push_back(*argument);
    }
    call.arguments = list;
    return call;
}

} // namespace host::device::recording
