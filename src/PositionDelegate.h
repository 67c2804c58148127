// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef POSITIONDELEGATE_H
#define POSITIONDELEGATE_H

#include <QItemDelegate>
#include <QSpinBox>
#include <QString>

/// The in-cell editors of the stored positions: a line for the name, a number for the target of
/// an axis. Editing a target leaves the axis's speed as it is shown.
class PositionDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    explicit PositionDelegate(QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};

/// The editor of an axis's target, a whole number from 0 to 300. It carries along the speed part
/// of the cell's text.
class PositionEditor : public QSpinBox
{
public:
    explicit PositionEditor(QWidget* parent);

    /// As the cell shows it, with its brackets.
    QString speed() const;
    void setSpeed(const QString& speed);

private:
    QString m_speed;
};

#endif
