// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/ReplayHost.h"

#include "host/device/recording/InitialState.h"

#include <algorithm>

namespace host::device::replay {

ReplayHost::ReplayHost(const recording::InitialState& state)
{
    for (const auto& variable : state.variables)
        set(variable.kind, variable.name, variable.value);
    for (const auto& property : state.properties)
        m_properties[{property.kind, property.variable, property.name}] = property.value;
}

void ReplayHost::set(Kind kind, const std::string& name, const Variant& value)
{
    m_variables.insert_or_assign({kind, name}, value);
}

ReplayHost::Variant ReplayHost::answer(const Variant& usual) const
{
    return std::exchange(m_answer, std::nullopt).value_or(usual);
}

// Nobody is told of changes but by what was recorded.

void ReplayHost::registerInput(const char* /*name*/, bool /*on*/)
{
    answer({});
}

void ReplayHost::registerOutput(const char* /*name*/, bool /*on*/)
{
    answer({});
}

void ReplayHost::registerStateVariable(const char* /*name*/, bool /*on*/)
{
    answer({});
}

void ReplayHost::registerConfigVariable(const char* /*name*/, bool /*on*/)
{
    answer({});
}

ReplayHost::Variant ReplayHost::read(Kind kind, const char* name) const
{
    const auto found = m_variables.find({kind, name});
    return answer(found == m_variables.end() ? Variant() : found->second);
}

void ReplayHost::write(Kind kind, const char* name, const Variant& value)
{
    answer({});
    set(kind, name, value);
}

ReplayHost::Variant ReplayHost::property(Kind kind, const char* name, const char* property) const
{
    const auto found = m_properties.find({kind, name, property});
    return answer(found == m_properties.end() ? Variant() : found->second);
}

void ReplayHost::setProperty(Kind kind, const char* name, const char* property,
                             const Variant& value)
{
    answer({});
    m_properties[{kind, name, property}] = value;
}

void ReplayHost::beginTransaction(const QString& /*name*/)
{
    answer({});
}

void ReplayHost::endTransaction()
{
    answer({});
}

bool ReplayHost::connectDevice()
{
    return answer(false).get<bool>();
}

bool ReplayHost::disconnectDevice()
{
    return answer(false).get<bool>();
}

ReplayHost::Variant ReplayHost::simulationDirectExec(const Variant& /*role*/,
                                                     const Variant& /*value*/)
{
    return answer({});
}

QString ReplayHost::translate(const QString& text) const
{
    return answer(text).get<QString>();
}

QString ReplayHost::currentLanguage() const
{
    return answer(QStringLiteral("en")).get<QString>();
}

/// It does nothing: the help is not the plugin's.
QAction* ReplayHost::helpAction(const QString& context) const
{
    QAction& action = m_helpActions[context];
    action.setText(answer(context).get<QString>());
    return &action;
}

void ReplayHost::widgetAdded(plugin::gui::DeviceWidget& widget)
{
    m_widgets.push_back(&widget);
}

void ReplayHost::widgetRemoved(plugin::gui::DeviceWidget& widget)
{
    m_widgets.erase(std::remove(m_widgets.begin(), m_widgets.end(), &widget), m_widgets.end());
}

} // namespace host::device::replay
