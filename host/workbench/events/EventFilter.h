// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_EVENTS_EVENTFILTER_H
#define HOST_WORKBENCH_EVENTS_EVENTFILTER_H

#include "host/device/events/Event.h"

#include <QSortFilterProxyModel>

namespace host::workbench::events {

/// The events of an EventModel that somebody wants to see: those with a text, in any column, and
/// of a level or worse.
class EventFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit EventFilter(QAbstractItemModel& events);

    void setLeast(device::events::Level level);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    device::events::Level m_least = device::events::Level::Debug;
};

} // namespace host::workbench::events

#endif
