// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/traffic/TrafficDock.h"

#include "host/workbench/traffic/TableFile.h"

#include <QEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace host::workbench::traffic {

namespace {

constexpr int fewestRows = 8;

} // namespace

TrafficDock::TrafficDock(device::trace::Traffic& traffic, QWidget* parent)
    : QDockWidget(parent),
      m_model(traffic),
      m_filterLabel(new QLabel),
      m_filter(new QLineEdit),
      m_pause(new QPushButton),
      m_clear(new QPushButton),
      m_save(new QPushButton),
      m_view(new QTreeView)
{
    setObjectName("TrafficDock");

    m_filtered.setSourceModel(&m_model);
    m_filtered.setFilterKeyColumn(-1); // all of them
    m_filtered.setFilterCaseSensitivity(Qt::CaseInsensitive);

    m_filter->setObjectName("filter");
    m_filter->setClearButtonEnabled(true);
    m_filterLabel->setBuddy(m_filter);
    m_pause->setObjectName("pause");
    m_pause->setCheckable(true);
    m_clear->setObjectName("clear");
    m_save->setObjectName("save");

    m_view->setObjectName("calls");
    m_view->setModel(&m_filtered);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setMinimumHeight(fewestRows * m_view->fontMetrics().lineSpacing());
    const int character = m_view->fontMetrics().averageCharWidth();
    const int widths[] = {16, 20, 17, 32, 30, 60, 30};
    for (int column = 0; column < TrafficModel::ColumnCount; ++column)
        m_view->header()->resizeSection(column, widths[column] * character);

    auto* content = new QWidget;
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_filterLabel);
    controls->addWidget(m_filter, 1);
    controls->addWidget(m_pause);
    controls->addWidget(m_clear);
    controls->addWidget(m_save);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(controls);
    layout->addWidget(m_view, 1);
    setWidget(content);
    setFocusProxy(m_filter); // for who opens it

    connect(this, &QDockWidget::visibilityChanged, &m_model, &TrafficModel::setActive);
    connect(m_filter, &QLineEdit::textChanged, &m_filtered,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_pause, &QPushButton::toggled, &m_model, &TrafficModel::setPaused);
    connect(m_clear, &QPushButton::clicked, &m_model, &TrafficModel::clear);
    connect(m_save, &QPushButton::clicked, this, &TrafficDock::askForFile);
    // The view goes with the newest call unless a person has scrolled away from it.
    connect(&m_filtered, &QAbstractItemModel::rowsAboutToBeInserted, this, [this] {
        const QScrollBar* const bar = m_view->verticalScrollBar();
        m_isAtEnd = bar->value() == bar->maximum();
    });
    connect(&m_filtered, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_isAtEnd)
            m_view->scrollToBottom();
    });

    translate();
    hide();
}

void TrafficDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void TrafficDock::translate()
{
    setWindowTitle(tr("Traffic"));
    m_filterLabel->setText(tr("Fil&ter:"));
    m_filter->setPlaceholderText(tr("Part of a call, a widget, an argument, …"));
    m_filter->setAccessibleName(tr("Filter of the calls"));
    m_view->setAccessibleName(tr("Calls between host and plugin"));
    m_pause->setText(tr("&Pause"));
    m_pause->setToolTip(tr("Freeze the list; calls are still recorded."));
    m_clear->setText(tr("&Clear"));
    m_clear->setToolTip(tr("Discard all calls."));
    m_save->setText(tr("&Save …"));
    m_save->setToolTip(tr("Save the listed calls as comma-separated values."));
    m_view->header()->viewport()->update();
    m_view->viewport()->update();
}

void TrafficDock::askForFile()
{
    // Not modal: the robot goes on meanwhile, and so must whoever watches it.
    auto* dialog = new QFileDialog(this, tr("Save the calls"), QString(),
                                   tr("Comma-separated values (*.csv)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("csv");
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& fileName) {
        const QString words = saveTable(m_filtered, fileName);
        if (!words.isEmpty())
            Q_EMIT problem(words);
    });
    dialog->show();
}

} // namespace host::workbench::traffic
