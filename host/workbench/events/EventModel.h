// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_EVENTS_EVENTMODEL_H
#define HOST_WORKBENCH_EVENTS_EVENTMODEL_H

#include "host/device/events/Events.h"
#include "host/workbench/pace/Refresh.h"

#include <QAbstractTableModel>

#include <deque>

namespace host::workbench::events {

/// A device's events as a table, the oldest first, for as long as somebody looks. News comes in at
/// most ten times a second.
class EventModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        TimeColumn,
        LevelColumn,
        SourceColumn,
        TextColumn,
        ColumnCount
    };

    /// The level, an int.
    static constexpr int LevelRole = Qt::UserRole;

    /// @p events outlives the model. Not active, and without rows, at first.
    explicit EventModel(device::events::Events& events);

    /// While it is not active nothing is done. What is still kept by then is shown on return.
    void setActive(bool active);
    /// The rows stay as they are until the end of the pause.
    void setPaused(bool paused);
    /// Forgets all events, here and in the device.
    void clear();

    /// The word for a level, in the language of the moment.
    static QString levelName(device::events::Level level);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    using Number = device::events::Events::Number;

    void onChanged();
    void update();
    void refresh();

    device::events::Events& m_events;
    bool m_isActive = false;
    bool m_isPaused = false;
    std::deque<device::events::Event> m_rows;
    Number m_first = 0; // the number of the first row
    pace::Refresh m_refresh{*this, [this] { refresh(); }};
};

} // namespace host::workbench::events

#endif
