// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_STOREDPOSITIONS_H
#define HOST_WORKBENCH_ARMVIEW_STOREDPOSITIONS_H

#include "host/device/variables/Variables.h"
#include "host/workbench/armview/Trajectory.h"

#include <QAbstractListModel>
#include <QString>
#include <QTimer>

#include <array>
#include <vector>

namespace host::workbench::armview {

/// The positions that the device stores, as its variables have them at any time.
class StoredPositions : public QAbstractListModel
{
    Q_OBJECT

public:
    struct Position
    {
        QString name;
        std::array<Goal, axisCount> goals; ///< 0 where nothing is stored for an axis

        bool operator==(const Position& other) const
        {
            return name == other.name && goals == other.goals;
        }
    };

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
