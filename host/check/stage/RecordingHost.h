// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_RECORDINGHOST_H
#define HOST_CHECK_STAGE_RECORDINGHOST_H

#include "host/check/stage/Usage.h"
#include "host/device/WidgetList.h"
#include "host/device/trace/TracedHost.h"
#include "host/device/trace/Traffic.h"
#include "plugin/gui/DeviceHost.h"
#include "plugin/gui/HistoryBundleContent.h"

#include <QHash>
#include <QPointer>
#include <QString>

#include <functional>
#include <map>
#include <utility>
#include <vector>

class QAction;

namespace host::check::stage {

class Complaints;

/// A host of one device that a test holds in its hands: it notes what its widgets use and every
/// call, and tells them what the test wants. What no widget may do at any time is a complaint.
class RecordingHost : public plugin::gui::DeviceHost
{
public:
    using Variant = olm::core::variant::Variant;
    using Kind = plugin::gui::VariableKind;
    using Calls = std::vector<device::trace::PluginCall>;
    using Changes = std::vector<std::pair<Variable, Variant>>;
    /// What a text is in the language of the moment.
    using Translation = std::function<QString(const QString& text)>;

    /// The property of actions that are the host's.
    static constexpr const char* isHosts = "belongs to the host";

    /// @p complaints outlives it.
    explicit RecordingHost(Complaints& complaints);
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;
    ~RecordingHost() override;

    /// What widgets are built on.
    plugin::gui::DeviceDelegate& delegate() { return m_traced; }

    const Usage& usage() const { return m_usage; }

    int widgetCount() const { return m_widgetCount; }

    bool isInTransaction() const { return m_isInTransaction; }

    /// The help action, null where it was never asked for or was deleted.
    const QAction* knownHelpAction(const QString& context) const;

    /// How many connections others made with this host's own objects.
    int connectionCount() const;

    /// The calls of widgets from now on: mark, let something happen, ask.
    device::trace::Traffic::Number mark() const { return m_traffic.end(); }

    Calls callsSince(device::trace::Traffic::Number mark) const;

    /// From now on, for whoever asks.
    void setLanguage(const QString& code, const Translation& translation);
    void set(const Variable& variable, const Variant& value) { m_values[variable] = value; }

    // What a host tells its widgets.
    void welcome(); ///< those that were built since the last time: they are translated
    void translate();
    void connected();
    void disconnected();
    void message(int role, const Variant& value);
    /// Sets the variable and delivers a bundle with it, as a device does where it is registered.
    void change(const Variable& variable, const Variant& value);
    /// The same with one bundle for all of them.
    void changeAll(const Changes& changes);

    void registerInput(const char* name, bool on) override;
    void registerOutput(const char* name, bool on) override;
    void registerStateVariable(const char* name, bool on) override;
    void registerConfigVariable(const char* name, bool on) override;
    Variant read(Kind kind, const char* name) const override;
    void write(Kind kind, const char* name, const Variant& value) override;
    Variant property(Kind kind, const char* name, const char* property) const override;
    void setProperty(Kind kind, const char* name, const char* property,
                     const Variant& value) override;
    void beginTransaction(const QString& name) override;
    void endTransaction() override;
    bool connectDevice() override;
    bool disconnectDevice() override;
    Variant simulationDirectExec(const Variant& role, const Variant& value) override;
    QString translate(const QString& text) const override;
    QString currentLanguage() const override;
    QAction* helpAction(const QString& context) const override;
    void widgetAdded(plugin::gui::DeviceWidget& widget) override;
    void widgetRemoved(plugin::gui::DeviceWidget& widget) override;

protected:
    using Notification = std::function<void(plugin::gui::DeviceWidget& widget)>;

    /// Comes before each call of a widget, but those for texts, help and the language: a complaint
    /// where no widget is left to make it. @p call says what for.
    virtual void expectWidget(const QString& call) const;
    /// Gives all widgets that are welcome the notification.
    virtual void deliver(const char* what, device::trace::Arguments arguments,
                         const Notification& notify);

    Complaints& complaints() const { return m_complaints; }

private:
    class HelpAction;

    void registerVariable(Kind kind, const char* name, bool on);

    Complaints& m_complaints;
    device::trace::Traffic m_traffic;
    device::trace::TracedHost m_traced{*this, m_traffic};
    device::WidgetList m_widgets;
    int m_widgetCount = 0;
    bool m_isInTransaction = false;
    std::map<Variable, Variant> m_values;
    Translation m_translation = [](const QString& text) { return text; };
    QString m_language = QStringLiteral("en");
    mutable Usage m_usage;
    mutable QHash<QString, QPointer<HelpAction>> m_helpActions;
};

} // namespace host::check::stage

#endif
