// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/RecordingHost.h"

#include "host/check/stage/Complaints.h"
#include "host/check/stage/Connections.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"

#include <QAction>

#include <algorithm>
#include <utility>

namespace host::check::stage {

using device::trace::Arguments;
using device::trace::PluginCall;
using plugin::gui::DeviceWidget;

QString inWords(const Variable& variable)
{
    static const QString kinds[] = {"input", "output", "state variable", "config variable"};
    return QStringLiteral("%1 \"%2\"")
        .arg(kinds[static_cast<std::size_t>(variable.first)],
             QString::fromLatin1(variable.second.c_str()));
}

class RecordingHost::HelpAction : public QAction
{
public:
    explicit HelpAction(const QString& context) : QAction("Help on " + context, nullptr)
    {
        setProperty(isHosts, true);
    }

    using QObject::receivers; // to see who keeps connections with it
};

RecordingHost::RecordingHost(Complaints& complaints)
    : m_complaints(complaints),
      m_widgets(m_traffic, [&complaints](const QString& function, const QString& what) {
          complaints.add(
              QStringLiteral("%1 threw an exception into its host: %2").arg(function, what));
      })
{
}

RecordingHost::~RecordingHost()
{
    for (const QPointer<HelpAction>& action : std::as_const(m_helpActions))
        delete action;
}

const QAction* RecordingHost::knownHelpAction(const QString& context) const
{
    return m_helpActions.value(context);
}

int RecordingHost::connectionCount() const
{
    int count = 0;
    for (const QPointer<HelpAction>& action : std::as_const(m_helpActions))
        count += action ? connectionsOf(*action) : 0;
    return count;
}

RecordingHost::Calls RecordingHost::callsSince(device::trace::Traffic::Number mark) const
{
    Calls calls;
    for (auto number = std::max(mark, m_traffic.begin()); number < m_traffic.end(); ++number) {
        const auto call = m_traffic.call(number);
        if (call->direction == PluginCall::Direction::ToHost)
            calls.push_back(*call);
    }
    return calls;
}

void RecordingHost::setLanguage(const QString& code, const Translation& translation)
{
    m_language = code;
    m_translation = translation;
}

void RecordingHost::welcome()
{
    m_widgets.translateNew();
}

void RecordingHost::translate()
{
    deliver("translate", {}, [](DeviceWidget& widget) { widget.translate(); });
}

void RecordingHost::connected()
{
    deliver("connected", {}, [](DeviceWidget& widget) { widget.connected(); });
}

void RecordingHost::disconnected()
{
    deliver("disconnected", {}, [](DeviceWidget& widget) { widget.disconnected(); });
}

void RecordingHost::message(int role, const Variant& value)
{
    deliver("on_messageReceived", Arguments{{std::string(), role}, {std::string(), value}},
            [&](DeviceWidget& widget) {
                widget.on_messageReceived(static_cast<plugin::plugin::DataRole>(role), value);
            });
}

void RecordingHost::change(const Variable& variable, const Variant& value)
{
    changeAll({{variable, value}});
}

void RecordingHost::changeAll(const Changes& changes)
{
    plugin::gui::HistoryBundleContent content;
    Arguments arguments;
    for (const auto& [variable, value] : changes) {
        set(variable, value);
        if (m_usage.registered.count(variable) == 0)
            continue;
        content.insert(variable.first, variable.second, value);
        arguments.push_back({variable.second, value});
    }
    if (content.isEmpty())
        return;
    deliver("update", std::move(arguments), [&](DeviceWidget& widget) {
        widget.update(plugin::gui::DeviceHistoryBundle(content));
    });
}

void RecordingHost::deliver(const char* what, Arguments arguments, const Notification& notify)
{
    m_widgets.deliver(what, std::move(arguments), notify);
}

void RecordingHost::registerInput(const char* name, bool on)
{
    registerVariable(Kind::Input, name, on);
}

void RecordingHost::registerOutput(const char* name, bool on)
{
    registerVariable(Kind::Output, name, on);
}

void RecordingHost::registerStateVariable(const char* name, bool on)
{
    registerVariable(Kind::State, name, on);
}

void RecordingHost::registerConfigVariable(const char* name, bool on)
{
    registerVariable(Kind::Config, name, on);
}

void RecordingHost::registerVariable(Kind kind, const char* name, bool on)
{
    expectWidget("to register the " + inWords(Variable(kind, name)));
    if (on)
        m_usage.registered.insert({kind, name});
}

void RecordingHost::expectWidget(const QString& call) const
{
    if (m_widgetCount == 0)
        m_complaints.add(
            QStringLiteral("called %1 when the last of the device's widgets was gone").arg(call));
}

RecordingHost::Variant RecordingHost::read(Kind kind, const char* name) const
{
    const Variable variable(kind, name);
    expectWidget("for the " + inWords(variable));
    m_usage.read.insert(variable);
    const auto found = m_values.find(variable);
    return found == m_values.end() ? Variant() : found->second;
}

void RecordingHost::write(Kind kind, const char* name, const Variant& value)
{
    const Variable variable(kind, name);
    expectWidget("to write the " + inWords(variable));
    m_usage.written.insert(variable);
    set(variable, value);
}

RecordingHost::Variant RecordingHost::property(Kind kind, const char* name, const char*) const
{
    expectWidget("for a property of the " + inWords(Variable(kind, name)));
    return {};
}

void RecordingHost::setProperty(Kind kind, const char* name, const char*, const Variant&)
{
    expectWidget("to set a property of the " + inWords(Variable(kind, name)));
}

void RecordingHost::beginTransaction(const QString& name)
{
    expectWidget(QStringLiteral("beginTransaction"));
    if (m_isInTransaction)
        m_complaints.add(
            QStringLiteral("began the transaction \"%1\" within another one").arg(name));
    m_isInTransaction = true;
}

void RecordingHost::endTransaction()
{
    expectWidget(QStringLiteral("endTransaction"));
    if (!m_isInTransaction)
        m_complaints.add(QStringLiteral("ended a transaction that it had not begun"));
    m_isInTransaction = false;
}

bool RecordingHost::connectDevice()
{
    expectWidget(QStringLiteral("connectDevice"));
    return true;
}

bool RecordingHost::disconnectDevice()
{
    expectWidget(QStringLiteral("disconnectDevice"));
    return true;
}

RecordingHost::Variant RecordingHost::simulationDirectExec(const Variant&, const Variant&)
{
    expectWidget(QStringLiteral("simulationDirectExec"));
    return {};
}

QString RecordingHost::translate(const QString& text) const
{
    m_usage.texts.insert(text);
    return m_translation(text);
}

QString RecordingHost::currentLanguage() const
{
    return m_language;
}

QAction* RecordingHost::helpAction(const QString& context) const
{
    if (m_usage.helpContexts.contains(context) && !m_helpActions.value(context))
        m_complaints.add(QStringLiteral("deleted the help action \"%1\", which belongs to the host")
                             .arg(context));
    m_usage.helpContexts.insert(context);
    QPointer<HelpAction>& action = m_helpActions[context];
    if (!action)
        action = new HelpAction(context);
    return action;
}

void RecordingHost::widgetAdded(DeviceWidget& widget)
{
    ++m_widgetCount;
    m_widgets.add(widget);
}

void RecordingHost::widgetRemoved(DeviceWidget& widget)
{
    --m_widgetCount;
    m_widgets.remove(widget);
}

} // namespace host::check::stage
