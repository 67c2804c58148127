// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef POSITIONMODEL_H
#define POSITIONMODEL_H

#include "olm/core/variant/Variant.h"

#include <QAbstractTableModel>
#include <QPointer>

#include <string>

namespace plugin {
namespace gui {
class DeviceHistoryBundle;
class DeviceWidget;
} // namespace gui
} // namespace plugin

/// The stored arm positions as a table: a row for each position, its name and then a column for
/// each axis with "target [speed]". It keeps no data: cells are read from the device's
/// configuration and edits are written there; the table changes when the device reports it.
class PositionModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// A child of @p owner, through which it reads and writes; empty once the owner is gone.
    explicit PositionModel(plugin::gui::DeviceWidget* owner);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Takes an axis as data() shows it, the brackets optional: what is missing or no number
    /// is 0. False, and nothing written, for another role than the edit role and for an index
    /// that is no longer valid.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The headers' texts are to be asked for again.
    void translate();
    /// Called by the owner with every bundle: tells the views what changed.
    void update(const plugin::gui::DeviceHistoryBundle& bundle);

public Q_SLOTS:
    /// Appends a copy of the last position, unless the device's table is full.
    void addPos();
    /// Closes the gap at @p row, which is not checked.
    void removePos(int row);

private:
    olm::core::variant::Variant read(const std::string& name) const;
    void write(const std::string& name, const olm::core::variant::Variant& value);
    QString trans(const QString& text) const;

    QPointer<plugin::gui::DeviceWidget> m_owner;
};

#endif
