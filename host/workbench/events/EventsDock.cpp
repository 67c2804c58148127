// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/events/EventsDock.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace host::workbench::events {

using device::events::Level;

namespace {

constexpr int fewestLines = 5;
constexpr Level levels[] = {Level::Debug, Level::Info, Level::Warning, Level::Error};

} // namespace

EventsDock::EventsDock(device::events::Events& events, QWidget* parent)
    : TableDock(parent),
      m_model(events),
      m_levelLabel(new QLabel),
      m_level(new QComboBox)
{
    setObjectName("EventsDock");
    m_level->setObjectName("level");
    for (const Level level : levels)
        m_level->addItem(QString(), static_cast<int>(level));
    m_levelLabel->setBuddy(m_level);
    list(m_filtered, QStringLiteral("events"), fewestLines, {21, 12, 18}, {m_levelLabel, m_level});

    connect(this, &QDockWidget::visibilityChanged, &m_model, &EventModel::setActive);
    connect(&filter(), &QLineEdit::textChanged, &m_filtered,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_level, qOverload<int>(&QComboBox::currentIndexChanged), &m_filtered,
            [this](int index) { m_filtered.setLeast(levels[index]); });
    connect(&pauseButton(), &QPushButton::toggled, &m_model, &EventModel::setPaused);
    connect(&clearButton(), &QPushButton::clicked, &m_model, &EventModel::clear);
    connect(&saveButton(), &QPushButton::clicked, this,
            [this] { askForFile(tr("Save the events")); });
    EventsDock::translate();
}

void EventsDock::translate()
{
    setWindowTitle(tr("Events"));
    filterLabel().setText(tr("Filter:"));
    filter().setPlaceholderText(tr("Part of a text, a source, …"));
    filter().setAccessibleName(tr("Filter of the events"));
    m_levelLabel->setText(tr("Level:"));
    m_level->setAccessibleName(tr("Lowest level"));
    for (int i = 0; i < m_level->count(); ++i)
        m_level->setItemText(i, tr("%1 or worse").arg(EventModel::levelName(levels[i])));
    m_level->setItemText(0, tr("All"));
    view().setAccessibleName(tr("What happened"));
    pauseButton().setText(tr("Pause"));
    pauseButton().setToolTip(tr("Freeze the list; events are still recorded."));
    clearButton().setText(tr("Clear"));
    clearButton().setToolTip(tr("Discard all events."));
    saveButton().setText(tr("Save …"));
    saveButton().setToolTip(tr("Save the listed events as comma-separated values."));
}

} // namespace host::workbench::events
