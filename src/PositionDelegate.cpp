// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionDelegate.h"

#include "AxisText.h"

#include <QLineEdit>

PositionDelegate::PositionDelegate(QObject* parent) : QItemDelegate(parent) {}

QWidget* PositionDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const
{
    if (index.column() == 0)
        return new QLineEdit(parent);
    return new PositionEditor(parent);
}

void PositionDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (index.column() == 0) {
        static_cast<QLineEdit*>(editor)->setText(text);
        return;
    }
    PositionEditor* const axis = static_cast<PositionEditor*>(editor);
    const AxisText shown = AxisText::parse(text);
    if (!shown.target.isEmpty())
        axis->setValue(shown.target.toInt());
    if (!shown.speed.isEmpty())
        axis->setSpeed(shown.speed);
}

void PositionDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const
{
    if (index.column() == 0) {
        model->setData(index, static_cast<QLineEdit*>(editor)->text(), Qt::EditRole);
        return;
    }
    PositionEditor* const axis = static_cast<PositionEditor*>(editor);
    axis->interpretText();
    AxisText edited;
    edited.target = QString::number(axis->value());
    edited.speed = axis->speed();
    model->setData(index, edited.text(), Qt::EditRole);
}

void PositionDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

PositionEditor::PositionEditor(QWidget* parent) : QSpinBox(parent)
{
    setLocale(QLocale::c()); // digits as the table shows them
    setRange(0, 300);
}

QString PositionEditor::speed() const
{
    return m_speed;
}

void PositionEditor::setSpeed(const QString& speed)
{
    m_speed = speed;
}
