// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_HOSTCALL_H
#define PLUGIN_GUI_HOSTCALL_H

#include "olm/core/Export.h"
#include "plugin/gui/DeviceHost.h"

class QWidget;

namespace plugin {
namespace gui {

/// A widget's call to its host, to be used as in `HostCall(host, widget)->read(...)`: while it
/// lasts the host can tell which widget calls. GUI thread only.
class OLM_EXPORT HostCall
{
public:
    /// @p widget may be null.
    HostCall(DeviceHost& host, const QWidget* widget);
    HostCall(const HostCall&) = delete;
    HostCall& operator=(const HostCall&) = delete;
    ~HostCall();

    DeviceHost* operator->() const { return &m_host; }

    /// The widget whose call is under way. Null where the call came straight to the delegate, as
    /// registrations do.
    static const QWidget* caller();

private:
    DeviceHost& m_host;
    const QWidget* m_outerCaller;
};

} // namespace gui
} // namespace plugin

#endif
