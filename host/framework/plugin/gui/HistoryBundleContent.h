// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_HISTORYBUNDLECONTENT_H
#define PLUGIN_GUI_HISTORYBUNDLECONTENT_H

#include "olm/core/Export.h"
#include "plugin/gui/DeviceHost.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace plugin {
namespace gui {

/// What a host puts into a bundle: for each kind the newest values of the variables that
/// changed. Built once for all widgets of a device.
class OLM_EXPORT HistoryBundleContent
{
public:
    /// Replaces an older value of the same variable.
    void insert(VariableKind kind, const std::string& name,
                const olm::core::variant::Variant& value);
    /// Null where the variable did not change.
    const VariableHistoryBuffer* find(VariableKind kind, std::string_view name) const;
    bool isEmpty() const;
    /// Calls @p visit with each variable, by kind and name.
    void forEach(const std::function<void(VariableKind kind, const std::string& name,
                                          const olm::core::variant::Variant& value)>& visit) const;

private:
    using Histories = std::map<std::string, VariableHistoryBuffer, std::less<>>;

    std::array<Histories, 4> m_histories;
};

} // namespace gui
} // namespace plugin

#endif
