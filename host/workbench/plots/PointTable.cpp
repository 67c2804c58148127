// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/PointTable.h"

#include "host/workbench/plots/CustomPlot.h"
#include "host/workbench/plots/Recorder.h"

#include <QDateTime>

#include <cmath>

namespace host::workbench::plots {

namespace {

QString inWords(double secondsSinceEpoch)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround(secondsSinceEpoch * 1000), Qt::UTC)
        .toString(Qt::ISODateWithMs);
}

} // namespace

PointTable::PointTable(device::Device& device, const Recorder& recorder)
    : m_device(device),
      m_recorder(recorder)
{
}

int PointTable::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    int count = 0;
    for (const auto& line : m_recorder.lines())
        count += line->series.data()->size();
    return count;
}

int PointTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PointTable::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    int row = index.row();
    for (const auto& line : m_recorder.lines()) {
        const Series::Data& points = *line->series.data();
        if (row >= points.size()) {
            row -= points.size();
            continue;
        }
        const QCPGraphData& point = *points.at(row);
        switch (index.column()) {
        case TimeColumn:
            return inWords(point.key);
        case QuantityColumn:
            return line->quantity.inWords(m_device);
        case ValueColumn:
            return std::isnan(point.value)
                       ? QString()
                       : QString::number(point.value, 'g', QLocale::FloatingPointShortest);
        default:
            return line->quantity.unit(m_device);
        }
    }
    return {};
}

QVariant PointTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case QuantityColumn:
        return tr("Quantity");
    case ValueColumn:
        return tr("Value");
    default:
        return tr("Unit");
    }
}

} // namespace host::workbench::plots
