// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_STOREDPOSITIONS_H
#define HOST_WORKBENCH_ARMVIEW_STOREDPOSITIONS_H

#include "host/device/variables/Positions.h"
#include "host/device/variables/Variables.h"

#include <QAbstractListModel>
#include <QTimer>

#include <vector>

namespace host::workbench::armview {

/// The positions that the device stores, as its variables have them at any time.
class StoredPositions : public QAbstractListModel
{
    Q_OBJECT

public:
    using Position = device::variables::Position;

    /// @p variables outlive the model.
    explicit StoredPositions(device::variables::Variables& variables, QObject* parent = nullptr);

    /// Null where there is no such row.
    const Position* at(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void take();

    const device::variables::Variables& m_variables;
    std::vector<Position> m_positions;
    QTimer m_timer{this}; // runs only while there is something to take
};

} // namespace host::workbench::armview

#endif
