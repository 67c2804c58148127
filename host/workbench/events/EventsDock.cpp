// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/events/EventsDock.h"

#include "host/workbench/values/TableEnd.h"
#include "host/workbench/values/TableFile.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace host::workbench::events {

using device::events::Level;

namespace {

constexpr int fewestLines = 5;
constexpr Level levels[] = {Level::Debug, Level::Info, Level::Warning, Level::Error};

} // namespace

EventsDock::EventsDock(device::events::Events& events, QWidget* parent)
    : QDockWidget(parent),
      m_model(events),
      m_filterLabel(new QLabel),
      m_filter(new QLineEdit),
      m_levelLabel(new QLabel),
      m_level(new QComboBox),
      m_pause(new QPushButton),
      m_clear(new QPushButton),
      m_save(new QPushButton),
      m_view(new QTreeView)
{
    setObjectName("EventsDock");

    m_filter->setObjectName("filter");
    m_filter->setClearButtonEnabled(true);
    m_filterLabel->setBuddy(m_filter);
    m_level->setObjectName("level");
    for (const Level level : levels)
        m_level->addItem(QString(), static_cast<int>(level));
    m_levelLabel->setBuddy(m_level);
    m_pause->setObjectName("pause");
    m_pause->setCheckable(true);
    m_clear->setObjectName("clear");
    m_save->setObjectName("save");

    m_view->setObjectName("events");
    m_view->setModel(&m_filtered);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setMinimumHeight(fewestLines * m_view->fontMetrics().lineSpacing());
    const int character = m_view->fontMetrics().averageCharWidth();
    const int widths[] = {18, 12, 18};
    for (int column = 0; column < EventModel::TextColumn; ++column)
        m_view->header()->resizeSection(column, widths[column] * character);
    new values::TableEnd(*m_view); // a child

    auto* content = new QWidget;
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_filterLabel);
    controls->addWidget(m_filter, 1);
    controls->addWidget(m_levelLabel);
    controls->addWidget(m_level);
    controls->addWidget(m_pause);
    controls->addWidget(m_clear);
    controls->addWidget(m_save);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(controls);
    layout->addWidget(m_view, 1);
    setWidget(content);
    setFocusProxy(m_filter); // for who opens it

    connect(this, &QDockWidget::visibilityChanged, &m_model, &EventModel::setActive);
    connect(m_filter, &QLineEdit::textChanged, &m_filtered,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_level, qOverload<int>(&QComboBox::currentIndexChanged), &m_filtered,
            [this](int index) { m_filtered.setLeast(levels[index]); });
    connect(m_pause, &QPushButton::toggled, &m_model, &EventModel::setPaused);
    connect(m_clear, &QPushButton::clicked, &m_model, &EventModel::clear);
    connect(m_save, &QPushButton::clicked, this, &EventsDock::askForFile);

    translate();
    hide();
}

void EventsDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void EventsDock::translate()
{
    setWindowTitle(tr("Events"));
    m_filterLabel->setText(tr("Filter:"));
    m_filter->setPlaceholderText(tr("Part of a text, a source, …"));
    m_filter->setAccessibleName(tr("Filter of the events"));
    m_levelLabel->setText(tr("Level:"));
    m_level->setAccessibleName(tr("Lowest level"));
    for (int i = 0; i < m_level->count(); ++i)
        m_level->setItemText(i, tr("%1 or worse").arg(EventModel::levelName(levels[i])));
    m_level->setItemText(0, tr("All"));
    m_view->setAccessibleName(tr("What happened"));
    m_pause->setText(tr("Pause"));
    m_pause->setToolTip(tr("Freeze the list; events are still recorded."));
    m_clear->setText(tr("Clear"));
    m_clear->setToolTip(tr("Discard all events."));
    m_save->setText(tr("Save …"));
    m_save->setToolTip(tr("Save the listed events as comma-separated values."));
    m_view->header()->viewport()->update();
    m_view->viewport()->update();
}

void EventsDock::askForFile()
{
    values::saveTableAs(m_filtered, tr("Save the events"), *this,
                        [this](const QString& words) { Q_EMIT problem(words); });
}

} // namespace host::workbench::events
