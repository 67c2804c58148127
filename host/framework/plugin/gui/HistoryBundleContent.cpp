// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/HistoryBundleContent.h"

#include <algorithm>

namespace plugin {
namespace gui {

void HistoryBundleContent::insert(VariableKind kind, const std::string& name,
                                  const olm::core::variant::Variant& value)
{
    m_histories[static_cast<std::size_t>(kind)].insert_or_assign(name,
                                                                 VariableHistoryBuffer(value));
}

const VariableHistoryBuffer* HistoryBundleContent::find(VariableKind kind,
                                                        std::string_view name) const
{
    const Histories& histories = m_histories[static_cast<std::size_t>(kind)];
    const auto found = histories.find(name);
    return found == histories.end() ? nullptr : &found->second;
}

bool HistoryBundleContent::isEmpty() const
{
    return std::all_of(m_histories.begin(), m_histories.end(),
                       [](const Histories& histories) { return histories.empty(); });
}

void HistoryBundleContent::forEach(
    const std::function<void(VariableKind kind, const std::string& name,
                             const olm::core::variant::Variant& value)>& visit) const
{
    for (std::size_t kind = 0; kind < m_histories.size(); ++kind) {
        for (const auto& [name, history] : m_histories[kind])
            visit(static_cast<VariableKind>(kind), name, history.last());
    }
}

} // namespace gui
} // namespace plugin
