// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TRAFFIC_TRAFFICMODEL_H
#define HOST_WORKBENCH_TRAFFIC_TRAFFICMODEL_H

#include "host/device/trace/Traffic.h"
#include "host/workbench/pace/Refresh.h"

#include <QAbstractTableModel>

#include <deque>
#include <memory>
#include <vector>

namespace host::workbench::traffic {

/// The calls between a device and its plugin as a table, the oldest first, for as long as
/// somebody looks. News comes in at most ten times a second.
class TrafficModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        TimeColumn,
        DurationColumn,
        DirectionColumn,
        CallColumn,
        WidgetColumn,
        ArgumentsColumn,
        ResultColumn,
        ColumnCount
    };

    /// Whether the plugin changes something at its host by the call.
    static constexpr int IsWriteRole = Qt::UserRole;

    /// @p traffic outlives the model. Not active, and without rows, at first.
    explicit TrafficModel(device::trace::Traffic& traffic);

    /// While it is not active nothing is done. What is still kept by then is shown on return.
    void setActive(bool active);
    /// The rows stay as they are until the end of the pause.
    void setPaused(bool paused);
    /// Forgets all calls, here and in the traffic.
    void clear();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    using Number = device::trace::Traffic::Number;

    void onChanged();
    void update();
    void refresh();
    static QString text(const device::trace::PluginCall& call, int column);

    device::trace::Traffic& m_traffic;
    bool m_isActive = false;
    bool m_isPaused = false;
    std::deque<std::shared_ptr<const device::trace::PluginCall>> m_calls;
    Number m_first = 0;             // the number of the first row
    std::vector<Number> m_underWay; // of the rows
    pace::Refresh m_refresh{*this, [this] { refresh(); }};
};

} // namespace host::workbench::traffic

#endif
