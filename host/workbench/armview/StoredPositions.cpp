// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/StoredPositions.h"

#include "host/workbench/values/OutsideText.h"

#include <QStringList>

#include <utility>

namespace host::workbench::armview {

using device::variables::Variables;
using ::plugin::gui::VariableKind;

StoredPositions::StoredPositions(Variables& variables, QObject* parent)
    : QAbstractListModel(parent),
      m_variables(variables)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0); // changes that belong together are taken together
    connect(&m_timer, &QTimer::timeout, this, &StoredPositions::take);
    connect(&variables, &Variables::touched, this, [this](const Variables::Key& key) {
        if (key.first == VariableKind::Config && device::variables::isOfPositions(key.second))
            m_timer.start();
    });
    take();
}

const StoredPositions::Position* StoredPositions::at(int row) const
{
    return row >= 0 && row < rowCount() ? &m_positions[static_cast<std::size_t>(row)] : nullptr;
}

int StoredPositions::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_positions.size());
}

QVariant StoredPositions::data(const QModelIndex& index, int role) const
{
    const Position* const position = at(index.row());
    if (!position)
        return {};
    if (role == Qt::DisplayRole)
        return position->name;
    if (role != Qt::ToolTipRole)
        return {};
    QStringList lines{position->name};
    int number = 0;
    for (const Position::Axis& axis : position->axes)
        lines += tr("Axis %1: %2 [%3]")
                     .arg(++number)
                     .arg(double(axis.target), 0, 'f', 0)
                     .arg(double(axis.speed), 0, 'f', 0);
    return values::plainToolTip(lines.join('\n'));
}

void StoredPositions::take()
{
    std::vector<Position> positions = device::variables::storedPositions(m_variables);
    const int before = static_cast<int>(m_positions.size());
    const int count = static_cast<int>(positions.size());
    if (count > before)
        beginInsertRows({}, before, count - 1);
    else if (count < before)
        beginRemoveRows({}, count, before - 1);
    m_positions.resize(positions.size());
    if (count > before)
        endInsertRows();
    else if (count < before)
        endRemoveRows();
    for (int row = 0; row < count; ++row) {
        Position& position = positions[static_cast<std::size_t>(row)];
        Position& known = m_positions[static_cast<std::size_t>(row)];
        if (position == known)
            continue;
        known = std::move(position);
        Q_EMIT dataChanged(index(row), index(row));
    }
}

} // namespace host::workbench::armview
