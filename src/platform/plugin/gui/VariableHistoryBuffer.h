// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_VARIABLEHISTORYBUFFER_H
#define PLUGIN_GUI_VARIABLEHISTORYBUFFER_H

#include "olm/core/Export.h"
#include "olm/core/variant/Variant.h"

namespace plugin {
namespace gui {

/// What a bundle carries for one variable that changed.
class OLM_EXPORT VariableHistoryBuffer
{
public:
    explicit VariableHistoryBuffer(const olm::core::variant::Variant& last);

    /// The newest value.
    const olm::core::variant::Variant& last() const;

private:
    olm::core::variant::Variant m_last;
};

} // namespace gui
} // namespace plugin

#endif
