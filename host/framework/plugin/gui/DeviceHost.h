// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_DEVICEHOST_H
#define PLUGIN_GUI_DEVICEHOST_H

#include "olm/core/Export.h"
#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceDelegate.h"

#include <QString>

class QAction;

namespace plugin {
namespace gui {

class DeviceWidget;

/// The four kinds of variables that a device has; names are unique within a kind.
enum class VariableKind
{
    Input,
    Output,
    State,
    Config
};

/// All that a host implements to serve the widgets of one device: the delegate that they are
/// built on, seen from the host's side. Everything is called on the GUI thread, and names are
/// never null. It outlives its widgets.
class OLM_EXPORT DeviceHost : public DeviceDelegate
{
public:
    /// The current value; empty where the device has no such variable.
    virtual olm::core::variant::Variant read(VariableKind kind, const char* name) const = 0;
    /// A widget's request for a change, reported in a later bundle.
    virtual void write(VariableKind kind, const char* name,
                       const olm::core::variant::Variant& value) = 0;
    /// A note on a variable, such as its unit; empty where there is none.
    virtual olm::core::variant::Variant property(VariableKind kind, const char* name,
                                                 const char* property) const = 0;
    virtual void setProperty(VariableKind kind, const char* name, const char* property,
                             const olm::core::variant::Variant& value) = 0;

    /// The writes between the two belong together. They come in pairs, never nested.
    virtual void beginTransaction(const QString& name) = 0;
    virtual void endTransaction() = 0;

    /// False where the request is refused at once.
    virtual bool connectDevice() = 0;
    virtual bool disconnectDevice() = 0;
    /// Carries out a command; empty where there is no answer.
    virtual olm::core::variant::Variant
    simulationDirectExec(const olm::core::variant::Variant& role,
                         const olm::core::variant::Variant& value) = 0;

    /// @p text in the current language, or as it is.
    virtual QString translate(const QString& text) const = 0;
    virtual QString currentLanguage() const = 0;
    /// The one action for @p context, owned by the host, never null.
    virtual QAction* helpAction(const QString& context) const = 0;

    /// @p widget wants notifications from now on. It is still under construction: do not call
    /// it before the constructor has ended.
    virtual void widgetAdded(DeviceWidget& widget) = 0;
    /// @p widget is being destroyed: do not call it any more.
    virtual void widgetRemoved(DeviceWidget& widget) = 0;
};

} // namespace gui
} // namespace plugin

#endif
