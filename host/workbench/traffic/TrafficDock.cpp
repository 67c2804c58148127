// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/traffic/TrafficDock.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace host::workbench::traffic {

namespace {

constexpr int fewestRows = 8;

} // namespace

TrafficDock::TrafficDock(device::trace::Traffic& traffic, QWidget* parent)
    : TableDock(parent),
      m_model(traffic),
      m_onlyWrites(new QCheckBox),
      m_fold(new QCheckBox)
{
    setObjectName("TrafficDock");
    m_onlyWrites->setObjectName("onlyWrites");
    m_fold->setObjectName("fold");
    list(m_filtered, QStringLiteral("calls"), fewestRows, {21, 15, 17, 32, 30, 60, 30},
         {m_onlyWrites, m_fold});

    connect(this, &QDockWidget::visibilityChanged, &m_model, &TrafficModel::setActive);
    connect(&filter(), &QLineEdit::textChanged, &m_filtered, &TrafficFilter::setWords);
    connect(m_onlyWrites, &QCheckBox::toggled, &m_filtered, &TrafficFilter::setOnlyWrites);
    connect(m_fold, &QCheckBox::toggled, &m_filtered, &TrafficFilter::setFolding);
    connect(&pauseButton(), &QPushButton::toggled, &m_model, &TrafficModel::setPaused);
    connect(&clearButton(), &QPushButton::clicked, &m_model, &TrafficModel::clear);
    connect(&saveButton(), &QPushButton::clicked, this,
            [this] { askForFile(tr("Save the calls")); });
    TrafficDock::translate();
}

void TrafficDock::translate()
{
    setWindowTitle(tr("Traffic"));
    filterLabel().setText(tr("Fil&ter:"));
    filter().setPlaceholderText(tr("Parts of a call; -word excludes"));
    filter().setToolTip(tr("Words that must all be in a call, its widget, its arguments or its "
                           "result. A word after a minus, such as -num_pos_max, must not."));
    filter().setAccessibleName(tr("Filter of the calls"));
    view().setAccessibleName(tr("Calls between host and plugin"));
    m_onlyWrites->setText(tr("Writes only"));
    m_onlyWrites->setToolTip(tr("List only the calls by which the plugin changes something."));
    m_fold->setText(tr("Fold"));
    m_fold->setToolTip(tr("Show equal calls in a row as one, with their number."));
    pauseButton().setText(tr("&Pause"));
    pauseButton().setToolTip(tr("Freeze the list; calls are still recorded."));
    clearButton().setText(tr("&Clear"));
    clearButton().setToolTip(tr("Discard all calls."));
    saveButton().setText(tr("&Save …"));
    saveButton().setToolTip(tr("Save the listed calls as comma-separated values."));
}

} // namespace host::workbench::traffic
