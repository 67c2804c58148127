// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VARIABLES_VARIABLEMODEL_H
#define HOST_WORKBENCH_VARIABLES_VARIABLEMODEL_H

#include "host/device/variables/Variables.h"
#include "host/workbench/pace/Refresh.h"

#include <QAbstractTableModel>

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace host::workbench::variables {

/// The variables of one device as a table, one a row, for as long as somebody looks. News comes
/// in at most ten times a second; the background of a row that changed fades within a second.
class VariableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        KindColumn,
        NameColumn,
        TypeColumn,
        ValueColumn,
        RegisteredColumn,
        WriterColumn,
        WrittenColumn,
        ColumnCount
    };

    /// @p variables outlives the model. Not active, and without rows, at first.
    explicit VariableModel(device::variables::Variables& variables);

    /// In the language of the moment.
    static QString kindName(::plugin::gui::VariableKind kind);

    /// While it is not active nothing is done. What happened meanwhile is shown on return.
    void setActive(bool active);

    olm::core::variant::Variant value(int row) const;
    /// Sets the variable as its device would. Whatever the type: widgets must stand that.
    void setValue(int row, const olm::core::variant::Variant& value);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    using Key = device::variables::Variables::Key;
    using Clock = std::chrono::steady_clock;

    struct Row
    {
        Key key;
        std::optional<Clock::time_point> changed; // while it flashes
    };

    void touch(const Key& key);
    void refresh();
    void addRows(const std::set<Key>& keys);
    QString text(const Key& key, int column) const;

    device::variables::Variables& m_variables;
    bool m_isActive = false;
    std::vector<Row> m_rows;
    std::map<Key, int> m_rowOf;
    std::set<Key> m_touched;
    pace::Refresh m_refresh{*this, [this] { refresh(); }};
};

} // namespace host::workbench::variables

#endif
