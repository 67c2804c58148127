// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/positions/ImportPlan.h"

#include <algorithm>

namespace host::workbench::positions {

ImportPlan::ImportPlan(const Positions& stored, const Positions& offered, Way way, int room)
    : m_stored(stored),
      m_result(way == Way::Add ? stored : Positions()),
      m_room(room)
{
    m_result.insert(m_result.end(), offered.begin(), offered.end());
}

int ImportPlan::rowCount() const
{
    return static_cast<int>(std::max(m_stored.size(), m_result.size()));
}

ImportPlan::Change ImportPlan::change(int row) const
{
    if (row >= static_cast<int>(m_stored.size()))
        return Change::Added;
    if (row >= static_cast<int>(m_result.size()))
        return Change::Removed;
    return before(row) == after(row) ? Change::None : Change::Changed;
}

const ImportPlan::Position& ImportPlan::before(int row) const
{
    const auto place = static_cast<std::size_t>(row);
    return place < m_stored.size() ? m_stored[place] : m_result.at(place);
}

const ImportPlan::Position& ImportPlan::after(int row) const
{
    const auto place = static_cast<std::size_t>(row);
    return place < m_result.size() ? m_result[place] : m_stored.at(place);
}

} // namespace host::workbench::positions
