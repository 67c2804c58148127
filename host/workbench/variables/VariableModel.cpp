// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/variables/VariableModel.h"

#include "host/workbench/values/OutsideText.h"
#include "host/workbench/values/ValueText.h"

#include <QBrush>

#include <algorithm>
#include <utility>

namespace host::workbench::variables {

using olm::core::variant::Variant;
using ::plugin::gui::VariableKind;

namespace {

using namespace std::chrono_literals;

constexpr auto refreshInterval = 100ms;
constexpr auto fadeTime = 800ms;

// No class of a plugin has this name.
const QString ownName = QStringLiteral("<variables>");

} // namespace

VariableModel::VariableModel(device::variables::Variables& variables) : m_variables(variables)
{
    connect(&variables, &device::variables::Variables::touched, this, &VariableModel::touch);
}

QString VariableModel::kindName(VariableKind kind)
{
    switch (kind) {
    case VariableKind::Input:
        return tr("input");
    case VariableKind::Output:
        return tr("output");
    case VariableKind::State:
        return tr("state");
    case VariableKind::Config:
        return tr("config");
    }
    return {};
}

void VariableModel::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    m_refresh.cancel();
    m_touched.clear();
    for (Row& row : m_rows)
        row.changed.reset();
    if (!active)
        return;
    addRows(m_variables.keys());
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

Variant VariableModel::value(int row) const
{
    const auto* const entry = m_variables.find(m_rows[static_cast<std::size_t>(row)].key);
    return entry ? entry->value : Variant();
}

void VariableModel::setValue(int row, const Variant& value)
{
    const Key& key = m_rows[static_cast<std::size_t>(row)].key;
    m_variables.set(key.first, key.second.c_str(), value, ownName);
}

int VariableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int VariableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant VariableModel::data(const QModelIndex& index, int role) const
{
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return text(row.key, index.column());
    if (role == Qt::ToolTipRole && index.column() == ValueColumn)
        return values::plainToolTip(text(row.key, index.column()));
    if (role != Qt::BackgroundRole || !row.changed)
        return {};
    const auto age = Clock::now() - *row.changed;
    if (age >= fadeTime)
        return {};
    // Half transparent, so that it suits light and dark desktops.
    QColor colour(255, 190, 0);
    colour.setAlphaF(0.35F * (1 - static_cast<float>(age / 1ms) / (fadeTime / 1ms)));
    return QBrush(colour);
}

QVariant VariableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case KindColumn:
        return tr("Kind");
    case NameColumn:
        return tr("Name");
    case TypeColumn:
        return tr("Type");
    case ValueColumn:
        return tr("Value");
    case RegisteredColumn:
        return tr("Registered");
    case WriterColumn:
        return tr("Written by");
    case WrittenColumn:
        return tr("Written at");
    default:
        return {};
    }
}

QString VariableModel::text(const Key& key, int column) const
{
    const auto* const entry = m_variables.find(key);
    switch (column) {
    case KindColumn:
        return kindName(key.first);
    case NameColumn:
        return QString::fromLatin1(key.second.c_str());
    case TypeColumn:
        return values::typeName(entry ? entry->value : Variant());
    case ValueColumn:
        return values::inWords(entry ? entry->value : Variant());
    case RegisteredColumn:
        return m_variables.isFollowed(key) ? tr("yes") : tr("no");
    case WriterColumn:
        if (!entry)
            return {};
        if (entry->writer == ownName)
            return tr("this dock");
        return entry->writer.isEmpty() ? tr("the device") : entry->writer;
    case WrittenColumn:
        return entry ? values::inWords(entry->written) : QString();
    default:
        return {};
    }
}

void VariableModel::touch(const Key& key)
{
    if (!m_isActive)
        return;
    m_touched.insert(key);
    m_refresh.request(refreshInterval);
}

void VariableModel::refresh()
{
    const auto now = Clock::now();
    const std::set<Key> touched = std::exchange(m_touched, {});
    addRows(touched);
    for (const Key& key : touched)
        m_rows[static_cast<std::size_t>(m_rowOf[key])].changed = now;
    int first = -1;
    int last = -1;
    bool isFading = false;
    for (int i = 0; i < rowCount(); ++i) {
        Row& row = m_rows[static_cast<std::size_t>(i)];
        if (!row.changed)
            continue;
        first = first < 0 ? i : first;
        last = i;
        if (now - *row.changed < fadeTime)
            isFading = true;
        else
            row.changed.reset();
    }
    if (first >= 0)
        Q_EMIT dataChanged(index(first, 0), index(last, ColumnCount - 1));
    if (isFading)
        m_refresh.request(refreshInterval);
}

/// Once known, a variable keeps its row: what nobody follows any more is of interest too.
void VariableModel::addRows(const std::set<Key>& keys)
{
    std::vector<Key> added;
    for (const Key& key : keys) {
        if (m_rowOf.count(key) == 0)
            added.push_back(key);
    }
    if (added.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    for (const Key& key : added) {
        m_rowOf[key] = rowCount();
        m_rows.push_back({key, {}});
    }
    endInsertRows();
}

} // namespace host::workbench::variables
