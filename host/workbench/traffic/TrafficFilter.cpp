// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/traffic/TrafficFilter.h"

#include "host/workbench/traffic/TrafficModel.h"

#include <algorithm>

namespace host::workbench::traffic {

TrafficFilter::TrafficFilter(QAbstractItemModel& calls)
{
    setSourceModel(&calls);
    // The first of equal calls may be forgotten before the others.
    connect(&calls, &QAbstractItemModel::rowsRemoved, this, [this] {
        if (m_isFolding)
            invalidateFilter();
    });
    // More of them change the number beside the first.
    connect(&calls, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_isFolding && rowCount() > 0)
            Q_EMIT dataChanged(index(0, TrafficModel::CallColumn),
                               index(rowCount() - 1, TrafficModel::CallColumn));
    });
}

void TrafficFilter::setWords(const QString& text)
{
    m_wanted.clear();
    m_unwanted.clear();
    for (const QString& word : text.simplified().split(u' ', Qt::SkipEmptyParts)) {
        if (!word.startsWith(u'-'))
            m_wanted << word;
        else if (word.size() > 1)
            m_unwanted << word.mid(1);
    }
    invalidateFilter();
}

void TrafficFilter::setOnlyWrites(bool only)
{
    m_isOnlyWrites = only;
    invalidateFilter();
}

void TrafficFilter::setFolding(bool isFolding)
{
    m_isFolding = isFolding;
    invalidateFilter();
}

QVariant TrafficFilter::data(const QModelIndex& index, int role) const
{
    QVariant data = QSortFilterProxyModel::data(index, role);
    if (!m_isFolding || role != Qt::DisplayRole || index.column() != TrafficModel::CallColumn)
        return data;
    const int first = mapToSource(index).row();
    int count = 1;
    for (int row = first + 1; row < sourceModel()->rowCount(); ++row) {
        if (!isWanted(row))
            continue;
        if (!isSame(row, first))
            break;
        ++count;
    }
    return count == 1 ? data : tr("%1 × %2").arg(data.toString(), QString::number(count));
}

bool TrafficFilter::filterAcceptsRow(int row, const QModelIndex&) const
{
    return isWanted(row) && !(m_isFolding && isRepetition(row));
}

bool TrafficFilter::isWanted(int row) const
{
    if (m_isOnlyWrites && !sourceModel()->index(row, 0).data(TrafficModel::IsWriteRole).toBool())
        return false;
    if (m_wanted.isEmpty() && m_unwanted.isEmpty())
        return true;
    QStringList texts;
    for (int column = 0; column < TrafficModel::ColumnCount; ++column)
        texts << text(row, column);
    const auto isInCall = [&texts](const QString& word) {
        return std::any_of(texts.cbegin(), texts.cend(), [&word](const QString& text) {
            return text.contains(word, Qt::CaseInsensitive);
        });
    };
    return std::all_of(m_wanted.cbegin(), m_wanted.cend(), isInCall) &&
           std::none_of(m_unwanted.cbegin(), m_unwanted.cend(), isInCall);
}

/// Of the wanted call before it.
bool TrafficFilter::isRepetition(int row) const
{
    int before = row - 1;
    while (before >= 0 && !isWanted(before))
        --before;
    return before >= 0 && isSame(row, before);
}

/// All but the times count.
bool TrafficFilter::isSame(int row, int other) const
{
    const auto columns = {TrafficModel::CallColumn, TrafficModel::DirectionColumn,
                          TrafficModel::WidgetColumn, TrafficModel::ArgumentsColumn,
                          TrafficModel::ResultColumn};
    return std::all_of(columns.begin(), columns.end(),
                       [&](int column) { return text(row, column) == text(other, column); });
}

QString TrafficFilter::text(int row, int column) const
{
    return sourceModel()->index(row, column).data().toString();
}

} // namespace host::workbench::traffic
