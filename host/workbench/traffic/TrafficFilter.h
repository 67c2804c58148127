// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TRAFFIC_TRAFFICFILTER_H
#define HOST_WORKBENCH_TRAFFIC_TRAFFICFILTER_H

#include <QSortFilterProxyModel>
#include <QStringList>

namespace host::workbench::traffic {

/// The calls of a TrafficModel that somebody wants to see.
class TrafficFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit TrafficFilter(QAbstractItemModel& calls);

    /// Each word of @p text must be in a call, in any column; none that begins with a minus may.
    void setWords(const QString& text);
    /// Only the calls by which the plugin changes something at its host.
    void setOnlyWrites(bool only);
    /// Of equal calls in a row only the first, with their number.
    void setFolding(bool isFolding);

    QVariant data(const QModelIndex& index, int role) const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    bool isWanted(int row) const;
    bool isRepetition(int row) const;
    bool isSame(int row, int other) const;
    QString text(int row, int column) const;

    QStringList m_wanted;
    QStringList m_unwanted;
    bool m_isOnlyWrites = false;
    bool m_isFolding = false;
};

} // namespace host::workbench::traffic

#endif
