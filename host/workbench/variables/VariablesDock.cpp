// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/variables/VariablesDock.h"

#include "host/workbench/values/ValueText.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace host::workbench::variables {

using olm::core::variant::Variant;

namespace {

constexpr int fewestRows = 8;

} // namespace

VariablesDock::VariablesDock(device::variables::Variables& variables, QWidget* parent)
    : QDockWidget(parent),
      m_model(variables),
      m_filterLabel(new QLabel),
      m_filter(new QLineEdit),
      m_view(new QTreeView),
      m_chosen(new QLabel),
      m_typeLabel(new QLabel),
      m_type(new QComboBox),
      m_valueLabel(new QLabel),
      m_value(new QLineEdit),
      m_set(new QPushButton),
      m_problem(new QLabel)
{
    setObjectName("VariablesDock");

    m_filtered.setSourceModel(&m_model);
    m_filtered.setFilterKeyColumn(-1); // all of them
    m_filtered.setFilterCaseSensitivity(Qt::CaseInsensitive);
    // A row stays where it is while its value changes: somebody may be about to choose it.
    m_filtered.setDynamicSortFilter(false);
    m_filtered.setSortCaseSensitivity(Qt::CaseInsensitive);

    m_filter->setObjectName("filter");
    m_filter->setClearButtonEnabled(true);
    m_filterLabel->setBuddy(m_filter);

    m_view->setObjectName("variables");
    m_view->setModel(&m_filtered);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setSortingEnabled(true);
    m_view->sortByColumn(VariableModel::NameColumn, Qt::AscendingOrder);
    m_view->setMinimumHeight(fewestRows * m_view->fontMetrics().lineSpacing());
    const int character = m_view->fontMetrics().averageCharWidth();
    const int widths[] = {12, 24, 26, 36, 13, 22, 16};
    for (int column = 0; column < VariableModel::ColumnCount; ++column)
        m_view->header()->resizeSection(column, widths[column] * character);

    m_type->setObjectName("type");
    m_type->addItems(values::enterableTypes());
    m_typeLabel->setBuddy(m_type);
    m_value->setObjectName("value");
    m_valueLabel->setBuddy(m_value);
    m_set->setObjectName("set");
    m_chosen->setObjectName("chosen");
    m_chosen->setTextFormat(Qt::PlainText);
    m_problem->setObjectName("problem");
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_problem->hide();

    auto* content = new QWidget;
    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(m_filterLabel);
    filterRow->addWidget(m_filter);
    auto* form = new QHBoxLayout;
    form->addWidget(m_chosen);
    form->addSpacing(12);
    form->addWidget(m_typeLabel);
    form->addWidget(m_type);
    form->addWidget(m_valueLabel);
    form->addWidget(m_value, 1);
    form->addWidget(m_set);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(filterRow);
    layout->addWidget(m_view, 1);
    layout->addLayout(form);
    layout->addWidget(m_problem);
    setWidget(content);
    setFocusProxy(m_filter); // for who opens it

    connect(this, &QDockWidget::visibilityChanged, &m_model, &VariableModel::setActive);
    connect(&m_model, &QAbstractItemModel::rowsInserted, &m_filtered,
            [this] { m_filtered.sort(m_filtered.sortColumn(), m_filtered.sortOrder()); });
    connect(m_filter, &QLineEdit::textChanged, &m_filtered,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &VariablesDock::showChosen);
    connect(m_view, &QTreeView::activated, this, [this] {
        m_value->setFocus();
        m_value->selectAll();
    });
    connect(m_value, &QLineEdit::returnPressed, this, &VariablesDock::setChosen);
    connect(m_set, &QPushButton::clicked, this, &VariablesDock::setChosen);

    translate();
    showChosen();
    hide();
}

void VariablesDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void VariablesDock::translate()
{
    setWindowTitle(tr("Variables"));
    m_filterLabel->setText(tr("F&ilter:"));
    m_filter->setPlaceholderText(tr("Part of a name, a value, …"));
    m_filter->setAccessibleName(tr("Filter of the variables"));
    m_view->setAccessibleName(tr("Variables of the device"));
    m_typeLabel->setText(tr("T&ype:"));
    m_type->setAccessibleName(tr("Type of the new value"));
    m_type->setItemText(0, values::enterableTypes().first());
    m_valueLabel->setText(tr("Valu&e:"));
    m_value->setAccessibleName(tr("New value"));
    m_set->setText(tr("Set"));
    m_set->setToolTip(tr("Set the variable as the device would: the plugin is notified; nothing is "
                         "stored or sent to the robot."));
    m_view->header()->viewport()->update();
    m_view->viewport()->update();
    nameChosen();
}

void VariablesDock::nameChosen()
{
    const int row = chosenRow();
    const auto text = [&](int column) { return m_model.index(row, column).data().toString(); };
    m_chosen->setText(row < 0 ? tr("No variable selected")
                              : text(VariableModel::KindColumn) + ' ' +
                                    text(VariableModel::NameColumn));
}

/// The form begins with the present value, and stays as it is while a person is at it.
void VariablesDock::showChosen()
{
    const int row = chosenRow();
    for (QWidget* widget : {static_cast<QWidget*>(m_type), static_cast<QWidget*>(m_value),
                            static_cast<QWidget*>(m_set)})
        widget->setEnabled(row >= 0);
    m_problem->hide();
    nameChosen();
    if (row < 0)
        return;
    const Variant value = m_model.value(row);
    const int type = values::enterableType(value);
    if (type >= 0)
        m_type->setCurrentIndex(type);
    m_value->setText(values::toText(value));
}

void VariablesDock::setChosen()
{
    QString problem;
    const auto value = values::fromText(m_type->currentIndex(), m_value->text(), &problem);
    m_problem->setText(problem);
    m_problem->setVisible(!value);
    if (value)
        m_model.setValue(chosenRow(), *value);
}

int VariablesDock::chosenRow() const
{
    return m_filtered.mapToSource(m_view->currentIndex()).row();
}

} // namespace host::workbench::variables
