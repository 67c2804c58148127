// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_POINTTABLE_H
#define HOST_WORKBENCH_PLOTS_POINTTABLE_H

#include <QAbstractTableModel>

namespace host::device {
class Device;
}

namespace host::workbench::plots {

class Recorder;

/// All values that a recorder has, line by line, for a file: numbers and times as machines read
/// them.
class PointTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        TimeColumn, ///< UTC, ISO 8601, to the millisecond
        QuantityColumn,
        ValueColumn, ///< empty in a gap
        UnitColumn,
        ColumnCount
    };

    /// Both outlive the table, whose rows come and go without a signal.
    PointTable(device::Device& device, const Recorder& recorder);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    device::Device& m_device;
    const Recorder& m_recorder;
};

} // namespace host::workbench::plots

#endif
