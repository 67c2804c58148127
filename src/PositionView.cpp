// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionView.h"

#include "AxisText.h"
#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceWidget.h"

#include <QDialogButtonBox>
#include <QMenu>
#include <QMouseEvent>
#include <QSpinBox>
#include <QVBoxLayout>

PositionView::PositionView(plugin::gui::DeviceWidget* owner)
    : QTableView(owner),
      m_owner(owner),
      m_row(0),
      m_axis(0)
{
}

void PositionView::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    m_pressed = indexAt(event->pos());
    if (event->button() != Qt::RightButton || !m_owner)
        return;
    m_row = m_axis = -1;
    if (m_pressed.isValid()) {
        m_row = m_pressed.row();
        m_axis = m_pressed.column() - 1;
    }

    // Without parent, so that it outlives a view that is deleted while the menu is open.
    QMenu menu;
    connect(this, SIGNAL(destroyed()), &menu, SLOT(close()));
    if (m_axis >= 0)
        menu.addAction(m_owner->trans("Edit speed"), this, SLOT(on_editSpeed()));
    const int count = m_owner->readConfigVariable("num_pos").toInt();
    if (count < m_owner->readConfigVariable("num_pos_max").toInt()) {
        if (!menu.isEmpty())
            menu.addSeparator();
        menu.addAction(m_owner->trans("Add position"), this, SLOT(on_addPos()));
    }
    if (m_row >= 0) {
        if (!menu.isEmpty())
            menu.addSeparator();
        menu.addAction(m_owner->trans("Remove position") + QString(" %1").arg(m_row + 1), this,
                       SLOT(on_removePos()));
    }
    if (!menu.isEmpty())
        menu.addSeparator();
    menu.addAction(m_owner->helpAction("manipulator"));
    menu.exec(viewport()->mapToGlobal(event->pos()));
}

void PositionView::on_editSpeed()
{
    // On the heap: it is this view's child and goes along when the view is deleted meanwhile.
    const QPointer<SpeedEditor> editor = new SpeedEditor(this);
    if (model())
        editor->setValue(model()->data(m_pressed, Qt::DisplayRole).toString());
    editor->setWindowTitle(tr("Position") + QString::number(m_row) + " " + tr("Axis") +
                           QString::number(m_axis + 1) + " - " + tr("speed"));
    const int result = editor->exec();
    if (!editor)
        return;
    // The device may have reported other positions meanwhile: the speed goes to the place that was
    // pressed, as a removal does.
    if (result == QDialog::Accepted && model())
        model()->setData(m_pressed, editor->value(), Qt::EditRole);
    delete editor.data();
}

void PositionView::on_addPos()
{
    Q_EMIT addPos();
}

void PositionView::on_removePos()
{
    Q_EMIT removePos(m_row);
}

SpeedEditor::SpeedEditor(QWidget* parent)
    : QDialog(parent),
      m_speed(new QSpinBox(this)),
      m_target(0)
{
    m_speed->setLocale(QLocale::c()); // digits as the table shows them
    m_speed->setRange(0, 143);
    QDialogButtonBox* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal);
    connect(buttons, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));

    QVBoxLayout* const layout = new QVBoxLayout;
    setLayout(layout);
    layout->addWidget(m_speed);
    layout->addWidget(buttons);
}

QString SpeedEditor::value() const
{
    m_speed->interpretText();
    return AxisText::ofNumbers(QString::number(m_target), QString::number(m_speed->value())).text();
}

void SpeedEditor::setValue(const QString& text)
{
    const AxisText shown = AxisText::parse(text);
    m_target = shown.target.toInt();
    if (!shown.speed.isEmpty())
        m_speed->setValue(shown.speedNumber().toInt());
}
