// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/BadHost.h"

#include "host/check/stage/Complaints.h"
#include "host/device/trace/CallUnderWay.h"

#include <algorithm>

namespace host::check::stage {

using plugin::gui::DeviceWidget;

void BadHost::answerWrites(int times)
{
    const auto written = std::exchange(m_unanswered, {});
    for (const auto& [variable, value] : written) {
        for (int i = 0; i < times; ++i)
            change(variable, value);
    }
}

BadHost::Variant BadHost::read(Kind kind, const char* name) const
{
    Variant value = RecordingHost::read(kind, name);
    if (m_writes == Writes::Forgotten)
        return {};
    if (!value.isEmpty())
        return value;
    const auto found = m_first.find({kind, name});
    return found != m_first.end() ? found->second : m_first[{kind, name}] = m_answer(name);
}

void BadHost::write(Kind kind, const char* name, const Variant& value)
{
    const Variant before = read(kind, name);
    RecordingHost::write(kind, name, value);
    const bool isTaken = m_writes == Writes::Taken;
    if (!isTaken)
        set({kind, name}, before);
    m_unanswered.emplace_back(Variable(kind, name), isTaken ? value : before);
}

BadHost::Variant BadHost::property(Kind kind, const char* name, const char* property) const
{
    RecordingHost::property(kind, name, property);
    return m_answer({});
}

bool BadHost::connectDevice()
{
    return RecordingHost::connectDevice() && m_writes == Writes::Taken;
}

bool BadHost::disconnectDevice()
{
    return RecordingHost::disconnectDevice() && m_writes == Writes::Taken;
}

BadHost::Variant BadHost::simulationDirectExec(const Variant& role, const Variant& value)
{
    RecordingHost::simulationDirectExec(role, value);
    return m_answer({});
}

QString BadHost::translate(const QString& text) const
{
    count(QStringLiteral("for the text \"%1\"").arg(text));
    return RecordingHost::translate(text);
}

QString BadHost::currentLanguage() const
{
    count(QStringLiteral("for the language"));
    return RecordingHost::currentLanguage();
}

QAction* BadHost::helpAction(const QString& context) const
{
    count(QStringLiteral("for the help action \"%1\"").arg(context));
    return RecordingHost::helpAction(context);
}

void BadHost::widgetAdded(DeviceWidget& widget)
{
    count(QStringLiteral("to serve a widget"));
    RecordingHost::widgetAdded(widget);
    m_all.push_back(&widget);
}

void BadHost::widgetRemoved(DeviceWidget& widget)
{
    m_all.erase(std::find(m_all.begin(), m_all.end(), &widget));
    RecordingHost::widgetRemoved(widget);
}

void BadHost::expectWidget(const QString& call) const
{
    count(call);
    RecordingHost::expectWidget(call);
}

void BadHost::deliver(const char* what, device::trace::Arguments, const Notification& notify)
{
    const auto told = m_all; // a handler may delete widgets, and build new ones
    for (DeviceWidget* widget : told) {
        if (std::find(m_all.begin(), m_all.end(), widget) == m_all.end())
            continue;
        const device::trace::CallUnderWay call(what);
        try {
            notify(*widget);
        } catch (const std::exception& e) {
            complaints().add(QStringLiteral("%1 threw an exception into its host: %2")
                                 .arg(QLatin1String(what), QString::fromUtf8(e.what())));
        }
    }
}

void BadHost::count(const QString& call) const
{
    if (m_callCount++ != m_failing)
        return;
    m_failedCall = call;
    throw HostFailure("the device is gone");
}

} // namespace host::check::stage
