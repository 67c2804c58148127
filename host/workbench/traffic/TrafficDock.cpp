// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/traffic/TrafficDock.h"

#include "host/workbench/values/TableEnd.h"
#include "host/workbench/values/TableFile.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
      m_onlyWrites(new QCheckBox),
      m_fold(new QCheckBox),
      m_pause(new QPushButton),
      m_clear(new QPushButton),
      m_save(new QPushButton),
      m_view(new QTreeView)
{
    setObjectName("TrafficDock");

    m_filter->setObjectName("filter");
    m_filter->setClearButtonEnabled(true);
    m_filterLabel->setBuddy(m_filter);
    m_onlyWrites->setObjectName("onlyWrites");
    m_fold->setObjectName("fold");
    m_pause->setObjectName("pause");
    m_pause->setCheckable(true);
    m_clear->setObjectName("clear");
    m_save->setObjectName("save");

    m_view->setObjectName("calls");
    m_view->setModel(&m_filtered);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setMinimumHeight(fewestRows * m_view->fontMetrics().lineSpacing());
    new values::TableEnd(*m_view); // a child
    const int character = m_view->fontMetrics().averageCharWidth();
    const int widths[] = {16, 20, 17, 32, 30, 60, 30};
    for (int column = 0; column < TrafficModel::ColumnCount; ++column)
        m_view->header()->resizeSection(column, widths[column] * character);

    auto* content = new QWidget;
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_filterLabel);
    controls->addWidget(m_filter, 1);
    controls->addWidget(m_onlyWrites);
    controls->addWidget(m_fold);
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
    connect(m_filter, &QLineEdit::textChanged, &m_filtered, &TrafficFilter::setWords);
    connect(m_onlyWrites, &QCheckBox::toggled, &m_filtered, &TrafficFilter::setOnlyWrites);
    connect(m_fold, &QCheckBox::toggled, &m_filtered, &TrafficFilter::setFolding);
    connect(m_pause, &QPushButton::toggled, &m_model, &TrafficModel::setPaused);
    connect(m_clear, &QPushButton::clicked, &m_model, &TrafficModel::clear);
    connect(m_save, &QPushButton::clicked, this, &TrafficDock::askForFile);

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
    m_filter->setPlaceholderText(tr("Parts of a call; -word excludes"));
    m_filter->setToolTip(tr("Words that must all be in a call, its widget, its arguments or its "
                            "result. A word after a minus, such as -num_pos_max, must not."));
    m_filter->setAccessibleName(tr("Filter of the calls"));
    m_view->setAccessibleName(tr("Calls between host and plugin"));
    m_onlyWrites->setText(tr("Writes only"));
    m_onlyWrites->setToolTip(tr("List only the calls by which the plugin changes something."));
    m_fold->setText(tr("Fold"));
    m_fold->setToolTip(tr("Show equal calls in a row as one, with their number."));
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
    values::saveTableAs(m_filtered, tr("Save the calls"), *this,
                        [this](const QString& words) { Q_EMIT problem(words); });
}

} // namespace host::workbench::traffic
