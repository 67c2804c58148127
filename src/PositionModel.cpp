// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionModel.h"

#include "AxisText.h"
#include "Latin1.h"
#include "PositionVariables.h"
#include "olm/core/Vector.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"

using olm::core::variant::Variant;

namespace {

typedef olm::core::Vector<float> Values; // target and speed of each axis in turn

const int axisCount = 9;

// Without decimals, and the same in every locale.
QString wholeNumber(float number)
{
    return QString::number(static_cast<double>(number), 'f', 0);
}

} // namespace

PositionModel::PositionModel(plugin::gui::DeviceWidget* owner)
    : QAbstractTableModel(owner),
      m_owner(owner)
{
}

int PositionModel::rowCount(const QModelIndex&) const
{
    return read("num_pos").toInt();
}

int PositionModel::columnCount(const QModelIndex&) const
{
    return 1 + axisCount;
}

QVariant PositionModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return QVariant();
    if (index.column() == 0)
        return Latin1::decode(read(PositionVariables::name(index.row())).toString());
    const Values values = read(PositionVariables::values(index.row())).get<Values>();
    const int target = 2 * (index.column() - 1);
    const int speed = target + 1;
    if (values.size() <= static_cast<unsigned int>(speed))
        return QString("0 [0]");
    return AxisText::ofNumbers(wholeNumber(values[target]), wholeNumber(values[speed])).text();
}

bool PositionModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!m_owner || !index.isValid() || role != Qt::EditRole)
        return false;
    const QString text = value.toString();
    if (index.column() == 0) {
        write(PositionVariables::name(index.row()), Latin1::encode(text));
        return true;
    }
    const std::string variable = PositionVariables::values(index.row());
    Values values = read(variable).get<Values>();
    values.resize(2 * axisCount);
    const int target = 2 * (index.column() - 1);
    const AxisText axis = AxisText::parse(text);
    values[target] = axis.target.toFloat();
    values[target + 1] = axis.speedNumber().toFloat();
    write(variable, values);
    return true;
}

QVariant PositionModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation != Qt::Horizontal)
        return trans("Pos") + QString::number(section + 1);
    if (section == 0)
        return trans("name");
    return trans("Axis") + QString::number(section);
}

Qt::ItemFlags PositionModel::flags(const QModelIndex&) const
{
    return Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled;
}

void PositionModel::translate()
{
    // One section past the last: the headers show a new language when they are painted next.
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount());
    Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount());
}

void PositionModel::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (bundle.getConfigVariableHistory("num_pos")) {
        // The device has changed already; nothing is left to be done in between.
        beginResetModel();
        endResetModel();
        return;
    }
    // Up to the maximum: for a row beyond the count the indexes are invalid, which a view takes
    // for the whole table.
    for (int row = 0; row < read("num_pos_max").toInt(); ++row) {
        if (bundle.getConfigVariableHistory(PositionVariables::values(row).c_str()))
            Q_EMIT dataChanged(index(row, 1), index(row, columnCount() - 1));
        if (bundle.getConfigVariableHistory(PositionVariables::name(row).c_str()))
            Q_EMIT dataChanged(index(row, 0), index(row, 0));
    }
}

void PositionModel::addPos()
{
    const int count = read("num_pos").toInt();
    if (count >= read("num_pos_max").toInt())
        return;
    if (count >= 1) {
        write(PositionVariables::values(count),
              read(PositionVariables::values(count - 1)).get<Values>());
        write(PositionVariables::name(count), "Pos" + std::to_string(count + 1));
    }
    write("num_pos", count + 1);
}

void PositionModel::removePos(int row)
{
    const int count = read("num_pos").toInt();
    if (count == 0)
        return;
    for (int i = row; i < count - 1; ++i) {
        write(PositionVariables::values(i), read(PositionVariables::values(i + 1)).get<Values>());
        write(PositionVariables::name(i), read(PositionVariables::name(i + 1)).toString());
    }
    write("num_pos", count - 1);
}

Variant PositionModel::read(const std::string& name) const
{
    return m_owner ? m_owner->readConfigVariable(name.c_str()) : Variant();
}

void PositionModel::write(const std::string& name, const Variant& value)
{
    if (m_owner)
        m_owner->writeConfigVariable(name.c_str(), value);
}

QString PositionModel::trans(const QString& text) const
{
    return m_owner ? m_owner->trans(text) : text;
}
