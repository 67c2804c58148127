// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/recording/DeviceState.h"

#include "host/device/recording/KindName.h"
#include "host/device/recording/ValueJson.h"
#include "host/device/variables/Latin1.h"
#include "host/device/variables/Variables.h"

#include <QJsonArray>

namespace host::device::recording {

using plugin::gui::VariableKind;
using variables::fromLatin1;
using variables::toLatin1;

namespace {

/// Of a variable: which one it is.
QByteArray headOf(VariableKind kind, const std::string& name)
{
    return R"({"kind":")" + QByteArray(kindName(kind)) + R"(","name":)" +
           ValueJson::quoted(fromLatin1(name)) + ',';
}

template <class Items, class Write>
QByteArray arrayOf(const Items& items, const Write& write)
{
    QByteArray json = "[";
    for (const auto& item : items) {
        if (json.size() > 1)
            json += ",\n";
        json += write(item);
    }
    return json + ']';
}

} // namespace

DeviceState DeviceState::of(const variables::Variables& variables)
{
    DeviceState state;
    for (const variables::Variables::Key& key : variables.keys()) {
        state.variables.push_back({key.first, key.second,
                                   variables.value(key.first, key.second.c_str()),
                                   variables.isFollowed(key)});
    }
    for (const auto& [key, value] : variables.properties()) {
        const auto& [kind, variable, name] = key;
        state.properties.push_back({kind, variable, name, value});
    }
    return state;
}

QByteArray DeviceState::toJson() const
{
    const auto writeVariable = [](const Variable& variable) {
        QByteArray json = headOf(variable.kind, variable.name);
        ValueJson::append(json, variable.value);
        return json + (variable.isRegistered ? R"(,"registered":true})" : "}");
    };
    const auto writeProperty = [](const Property& property) {
        QByteArray json = headOf(property.kind, property.variable);
        json += R"("property":)" + ValueJson::quoted(fromLatin1(property.name)) + ',';
        ValueJson::append(json, property.value);
        return json + '}';
    };
    return R"({"recording":)" + QByteArray::number(format) + R"(,"program":)" +
           ValueJson::quoted(program) + R"(,"device":)" + ValueJson::quoted(device) +
           R"(,"connectionState":)" + QByteArray::number(connectionState) + R"(,"variables":)" +
           arrayOf(variables, writeVariable) + R"(,"properties":)" +
           arrayOf(properties, writeProperty) + '}';
}

std::optional<DeviceState> DeviceState::read(const QJsonObject& json, QString* error)
{
    const int found = json.value(QLatin1String("recording")).toInt();
    if (found != format) {
        *error = tr("its calls are of the format %1, and this program reads %2")
                     .arg(QString::number(found), QString::number(format));
        return std::nullopt;
    }
    DeviceState state;
    state.program = json.value(QLatin1String("program")).toString();
    state.device = json.value(QLatin1String("device")).toString();
    state.connectionState = json.value(QLatin1String("connectionState")).toInt(-1);
    for (const char* const list : {"variables", "properties"}) {
        const QJsonArray items = json.value(QLatin1String(list)).toArray();
        for (const QJsonValue item : items) {
            const QJsonObject object = item.toObject();
            const auto kind = kindNamed(object.value(QLatin1String("kind")).toString());
            const auto value = ValueJson::read(object, error);
            if (value && !kind)
                *error = tr("a variable has no kind");
            if (!value || !kind)
                return std::nullopt;
            const std::string name = toLatin1(object.value(QLatin1String("name")).toString());
            const QJsonValue property = object.value(QLatin1String("property"));
            if (property.isString())
                state.properties.push_back({*kind, name, toLatin1(property.toString()), *value});
            else
                state.variables.push_back(
                    {*kind, name, *value, object.value(QLatin1String("registered")).toBool()});
        }
    }
    return state;
}

} // namespace host::device::recording
