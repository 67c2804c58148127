// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_ROBOTMODEL_H
#define HOST_WORKBENCH_ROBOTVIEW_ROBOTMODEL_H

#include "host/workbench/robotview/RobotState.h"

#include <QAbstractTableModel>

namespace host::workbench::robotview {

/// The robot's parts as a table: the arm's axes, the camera's rate, and what is switched on. What
/// is old is grey and says its age; what was never told is a dash.
class RobotModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        TargetColumn,
        PresentColumn,
        ColumnCount
    };
    /// After the axes.
    enum Row
    {
        CameraRow = RobotState::axisCount,
        FirstLineRow,
        SecondLineRow,
        ThirdLineRow,
        TorqueRow,
        DriveRow,
        RowCount
    };

    /// @p state outlives the model.
    explicit RobotModel(const RobotState& state) : m_state(state) {}

    /// The state changed, or time passed.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString name(int row) const;
    QString value(int row, int column) const;
    QString age(int row, int column) const;
    std::optional<bool> isOn(int row) const;

    const RobotState& m_state;
};

} // namespace host::workbench::robotview

#endif
