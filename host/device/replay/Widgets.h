// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_WIDGETS_H
#define HOST_DEVICE_REPLAY_WIDGETS_H

#include "host/device/recording/CallText.h"
#include "host/device/trace/TracedHost.h"
#include "host/device/trace/Traffic.h"

#include <set>

namespace plugin::gui {
class DeviceWidget;
class Interface;
} // namespace plugin::gui

namespace host::device::replay {

class ReplayHost;

/// A plugin's widgets on a host that has no device, and how what was recorded reaches them.
class Widgets
{
public:
    enum class Outcome
    {
        Done,
        Threw,
        NoWidget,   ///< that it could be played to
        NoFunction, ///< which this host knows
    };

    /// What a host calls of a widget.
    struct Function
    {
        const char* name;
        void (*call)(plugin::gui::DeviceWidget& widget, const trace::Arguments& arguments);
    };

    /// @p host outlives them.
    explicit Widgets(ReplayHost& host);
    /// Deletes those that are left.
    ~Widgets();

    /// Has @p factory build the widget. The caller may own it; null where the plugin has no such
    /// widget. What a constructor throws passes through.
    plugin::gui::DeviceWidget* build(const plugin::gui::Interface& factory, const char* device,
                                     const char* widget);

    /// Plays a call to the plugin, whose arguments are there, to the widget that is meant.
    Outcome deliver(const recording::RecordedCall& call);
    /// The call is not played.
    void skip(const recording::RecordedCall& call);
    /// Plays a call to all of them.
    void deliverToAll(const char* function, const trace::Arguments& arguments);

    /// All calls that were played, and those that the plugin made.
    trace::Traffic& traffic() { return m_traffic; }

private:
    Outcome call(const Function& function, plugin::gui::DeviceWidget& widget,
                 const std::shared_ptr<const trace::Arguments>& arguments);
    plugin::gui::DeviceWidget* find(const recording::RecordedCall& call);

    ReplayHost& m_host;
    trace::Traffic m_traffic;
    trace::TracedHost m_tracedHost;
    std::set<const plugin::gui::DeviceWidget*> m_told; // of those that get the same
};

} // namespace host::device::replay

#endif
