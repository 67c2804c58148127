// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/armview/StoredPositions.h"

#include "host/device/variables/Latin1.h"
#include "host/workbench/values/OutsideText.h"
#include "olm/core/Vector.h"

#include <QStringList>

#include <algorithm>
#include <string>
#include <utility>

namespace host::workbench::armview {

using device::variables::Variables;
using ::plugin::gui::VariableKind;

namespace {

constexpr int mostPositions = 1000; // the device has 16; any number may be set by hand

StoredPositions::Position positionOf(const Variables& variables, int row)
{
    const std::string name = "pos" + std::to_string(row);
    StoredPositions::Position position;
    position.name = device::variables::fromLatin1(
        variables.value(VariableKind::Config, (name + "_name").c_str()).toString());
    const auto numbers =
        variables.value(VariableKind::Config, name.c_str()).get<olm::core::Vector<float>>();
    for (int axis = 0; axis < axisCount; ++axis) {
        if (2 * axis + 1 < static_cast<int>(numbers.size()))
            position.goals.at(static_cast<std::size_t>(axis)) = {numbers[2 * axis],
                                                                 numbers[2 * axis + 1]};
    }
    return position;
}

} // namespace

StoredPositions::StoredPositions(Variables& variables, QObject* parent)
    : QAbstractListModel(parent),
      m_variables(variables)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0); // changes that belong together are taken together
    connect(&m_timer, &QTimer::timeout, this, &StoredPositions::take);
    connect(&variables, &Variables::touched, this, [this](const Variables::Key& key) {
        if (key.first == VariableKind::Config &&
            (key.second.rfind("pos", 0) == 0 || key.second == "num_pos"))
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
    for (int axis = 0; axis < axisCount; ++axis) {
        const Goal& goal = position->goals.at(static_cast<std::size_t>(axis));
        lines += tr("Axis %1: %2 [%3]")
                     .arg(axis + 1)
                     .arg(double(goal.target), 0, 'f', 0)
                     .arg(double(goal.speed), 0, 'f', 0);
    }
    return values::plainToolTip(lines.join('\n'));
}

void StoredPositions::take()
{
    const int before = static_cast<int>(m_positions.size());
    const int count =
        std::clamp(m_variables.value(VariableKind::Config, "num_pos").toInt(), 0, mostPositions);
    if (count > before)
        beginInsertRows({}, before, count - 1);
    else if (count < before)
        beginRemoveRows({}, count, before - 1);
    m_positions.resize(static_cast<std::size_t>(count));
    if (count > before)
        endInsertRows();
    else if (count < before)
        endRemoveRows();
    for (int row = 0; row < count; ++row) {
        Position position = positionOf(m_variables, row);
        Position& known = m_positions[static_cast<std::size_t>(row)];
        if (position == known)
            continue;
        known = std::move(position);
        Q_EMIT dataChanged(index(row), index(row));
    }
}

} // namespace host::workbench::armview
