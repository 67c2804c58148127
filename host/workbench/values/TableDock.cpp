// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/TableDock.h"

#include "host/workbench/values/TableEnd.h"
#include "host/workbench/values/TableFile.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace host::workbench::values {

TableDock::TableDock(QWidget* parent)
    : QDockWidget(parent),
      m_filterLabel(new QLabel),
      m_filter(new QLineEdit),
      m_pause(new QPushButton),
      m_clear(new QPushButton),
      m_save(new QPushButton),
      m_view(new QTreeView)
{
    m_filter->setObjectName("filter");
    m_filter->setClearButtonEnabled(true);
    m_filterLabel->setBuddy(m_filter);
    m_pause->setObjectName("pause");
    m_pause->setCheckable(true);
    m_clear->setObjectName("clear");
    m_save->setObjectName("save");
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
}

void TableDock::list(QAbstractItemModel& table, const QString& name, int fewestRows,
                     const QList<int>& widths, const QList<QWidget*>& choices)
{
    m_view->setObjectName(name);
    m_view->setModel(&table);
    m_view->setMinimumHeight(fewestRows * m_view->fontMetrics().lineSpacing());
    const int character = m_view->fontMetrics().averageCharWidth();
    for (int column = 0; column < widths.size(); ++column)
        m_view->header()->resizeSection(column, widths[column] * character);
    new TableEnd(*m_view); // a child

    auto* content = new QWidget;
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_filterLabel);
    controls->addWidget(m_filter, 1);
    for (QWidget* choice : choices)
        controls->addWidget(choice);
    controls->addWidget(m_pause);
    controls->addWidget(m_clear);
    controls->addWidget(m_save);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(controls);
    layout->addWidget(m_view, 1);
    setWidget(content);
    setFocusProxy(m_filter); // for who opens it

    hide();
}

void TableDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    translate();
    m_view->header()->viewport()->update();
    m_view->viewport()->update();
}

void TableDock::askForFile(const QString& title)
{
    saveTableAs([this] { return tableText(*m_view->model()); }, title, *this,
                [this](const QString& words) { Q_EMIT problem(words); });
}

} // namespace host::workbench::values
