// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/positions/ImportDialog.h"

#include "host/device/Device.h"
#include "host/workbench/positions/PositionHistory.h"
#include "host/workbench/values/FloatText.h"
#include "host/workbench/values/OutsideText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace host::workbench::positions {

using device::variables::Position;
using ::plugin::gui::VariableKind;
using values::floatText;

namespace {

enum Column
{
    ChangeColumn,
    NameColumn,
    FirstAxisColumn,
    ColumnCount = FirstAxisColumn + device::readers::ArmPose::axisCount,
};

/// As the manipulator tab writes it, with decimals.
QString axisText(const Position::Axis& axis)
{
    return floatText(axis.target) + " [" + floatText(axis.speed) + ']';
}

QString cellText(const Position& position, int column)
{
    if (column == NameColumn)
        return values::shortened(position.name);
    return axisText(position.axes.at(static_cast<std::size_t>(column - FirstAxisColumn)));
}

} // namespace

ImportDialog::ImportDialog(device::Device& device, const PositionHistory& history, QWidget* parent)
    : QDialog(parent),
      m_device(device),
      m_words(new QLabel),
      m_way(new QComboBox),
      m_table(new QTableWidget(0, ColumnCount)),
      m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Cancel)),
      m_import(m_buttons->addButton(QString(), QDialogButtonBox::AcceptRole))
{
    setObjectName("ImportDialog");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_way->setObjectName("way");
    m_way->addItems({QString(), QString()});
    m_table->setObjectName("preview");
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->verticalHeader()->setHighlightSections(false);
    m_problem->setObjectName("problem");
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_import->setObjectName("import");
    m_import->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_words);
    layout->addWidget(m_way);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_problem);
    layout->addWidget(m_buttons);
    resize(120 * fontMetrics().averageCharWidth(), 24 * fontMetrics().height());

    connect(m_way, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ImportDialog::refresh);
    connect(&history, &PositionHistory::changed, this, &ImportDialog::refresh);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &ImportDialog::import);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    translate();
}

void ImportDialog::offer(const ImportPlan::Positions& positions, const QString& source)
{
    m_offered = positions;
    m_source = source;
    translate();
    show();
    raise();
    activateWindow();
}

void ImportDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void ImportDialog::translate()
{
    setWindowTitle(tr("Import positions of %1").arg(m_device.name()));
    m_words->setText(tr("Positions from %1").arg(values::shortened(m_source)));
    m_way->setAccessibleName(tr("What becomes of the stored positions"));
    m_way->setItemText(static_cast<int>(ImportPlan::Way::Replace),
                       tr("Replace the stored positions"));
    m_way->setItemText(static_cast<int>(ImportPlan::Way::Add), tr("Add to the stored positions"));
    m_table->setAccessibleName(tr("What changes"));
    QStringList titles{tr("Change"), tr("Name")};
    for (int axis = 1; axis <= device::readers::ArmPose::axisCount; ++axis)
        titles << tr("Axis %1").arg(axis);
    m_table->setHorizontalHeaderLabels(titles);
    m_import->setText(tr("&Import"));
    refresh();
}

ImportPlan ImportDialog::plan() const
{
    return {device::variables::storedPositions(m_device.variables()), m_offered,
            static_cast<ImportPlan::Way>(m_way->currentIndex()),
            m_device.read(VariableKind::Config, "num_pos_max").toInt()};
}

QString ImportDialog::inWords(ImportPlan::Change change)
{
    switch (change) {
    case ImportPlan::Change::Added:
        return tr("added");
    case ImportPlan::Change::Removed:
        return tr("removed");
    case ImportPlan::Change::Changed:
        return tr("changed");
    default:
        return {};
    }
}

void ImportDialog::refresh()
{
    const ImportPlan plan = this->plan();
    m_table->setRowCount(plan.rowCount());
    for (int row = 0; row < plan.rowCount(); ++row) {
        const ImportPlan::Change change = plan.change(row);
        m_table->setItem(row, ChangeColumn, new QTableWidgetItem(inWords(change)));
        for (int column = NameColumn; column < ColumnCount; ++column) {
            const QString was = cellText(plan.before(row), column);
            const QString will = cellText(plan.after(row), column);
            auto* item = new QTableWidgetItem(was == will ? will : was + " → " + will);
            QFont font = item->font();
            font.setBold(change == ImportPlan::Change::Added || was != will);
            font.setStrikeOut(change == ImportPlan::Change::Removed);
            item->setFont(font);
            m_table->setItem(row, column, item);
        }
    }
    m_table->resizeColumnsToContents();

    m_problem->setText(!plan.hasRoom()
                           ? tr("These would be %1 positions; the device has room for %2.")
                                 .arg(plan.result().size())
                                 .arg(plan.room())
                       : !plan.changesAnything() ? tr("Nothing would change.")
                                                 : QString());
    m_import->setEnabled(plan.hasRoom() && plan.changesAnything());
}

void ImportDialog::import()
{
    device::variables::storePositions(m_device, plan().result(), tr("Import positions"));
    close();
}

} // namespace host::workbench::positions
