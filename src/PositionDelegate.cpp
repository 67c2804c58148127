#include "PositionDelegate.h"

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
    const QString target = text.section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
    const QString speed = text.section(QLatin1Char(' '), 1, 1, QString::SectionSkipEmpty);
    if (!target.isEmpty())
        axis->setValue(target.toInt());
    if (!speed.isEmpty())
        axis->setSpeed(speed);
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
    model->setData(index, QString("%1 %2").arg(axis->value()).arg(axis->speed()), Qt::EditRole);
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
