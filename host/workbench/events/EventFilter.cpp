// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/events/EventFilter.h"

#include "host/workbench/events/EventModel.h"

namespace host::workbench::events {

EventFilter::EventFilter(QAbstractItemModel& events)
{
    setSourceModel(&events);
    setFilterKeyColumn(-1); // all of them
    setFilterCaseSensitivity(Qt::CaseInsensitive);
}

void EventFilter::setLeast(device::events::Level level)
{
    m_least = level;
    invalidateFilter();
}

bool EventFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const int level = sourceModel()->index(row, 0, parent).data(EventModel::LevelRole).toInt();
    return level >= static_cast<int>(m_least) &&
           QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

} // namespace host::workbench::events
