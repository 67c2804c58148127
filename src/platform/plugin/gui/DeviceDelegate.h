// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_DEVICEDELEGATE_H
#define PLUGIN_GUI_DEVICEDELEGATE_H

#include "olm/core/Export.h"

namespace plugin {
namespace gui {

/// The host object that stands for one device. Widgets take it in their constructors and tell
/// it which variables they follow: only those are carried by the bundles given to
/// `DeviceInterface::update`. It outlives its widgets.
class OLM_EXPORT DeviceDelegate
{
public:
    virtual ~DeviceDelegate();

    /// From now on (@p on true) or no longer carry the variable @p name in bundles.
    virtual void registerInput(const char* name, bool on) = 0;
    virtual void registerOutput(const char* name, bool on) = 0;
    virtual void registerStateVariable(const char* name, bool on) = 0;
    virtual void registerConfigVariable(const char* name, bool on) = 0;
};

} // namespace gui
} // namespace plugin

#endif
