// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_POSITIONS_IMPORTPLAN_H
#define HOST_WORKBENCH_POSITIONS_IMPORTPLAN_H

#include "host/device/variables/Positions.h"

namespace host::workbench::positions {

/// What an import would make of the stored positions.
class ImportPlan
{
public:
    using Position = device::variables::Position;
    using Positions = std::vector<Position>;

    enum class Way
    {
        Replace,
        Add, ///< behind the stored ones
    };

    enum class Change
    {
        None,
        Changed,
        Added,
        Removed,
    };

    /// The device has room for @p room positions.
    ImportPlan(const Positions& stored, const Positions& offered, Way way, int room);

    /// Of what is stored and what will be, the longer one's.
    int rowCount() const;
    Change change(int row) const;
    /// Each other's, where there is only one of them.
    const Position& before(int row) const;
    const Position& after(int row) const;

    const Positions& result() const { return m_result; }

    int room() const { return m_room; }
    bool hasRoom() const { return static_cast<int>(m_result.size()) <= m_room; }
    bool changesAnything() const { return m_result != m_stored; }

private:
    Positions m_stored;
    Positions m_result;
    int m_room;
};

} // namespace host::workbench::positions

#endif
