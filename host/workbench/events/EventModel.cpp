// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/events/EventModel.h"

#include "host/workbench/values/OutsideText.h"
#include "host/workbench/values/ValueText.h"

#include <QBrush>
#include <QColor>

#include <algorithm>

namespace host::workbench::events {

using device::events::Event;
using device::events::Level;

namespace {

constexpr std::chrono::milliseconds newsInterval{100};

/// Half transparent, so that it suits light and dark desktops.
QVariant background(Level level)
{
    if (level >= Level::Error)
        return QBrush(QColor(220, 40, 0, 90));
    return level == Level::Warning ? QBrush(QColor(255, 170, 0, 70)) : QVariant();
}

QString cellText(const Event& event, int column)
{
    switch (column) {
    case EventModel::TimeColumn:
        return values::inWords(event.time);
    case EventModel::LevelColumn:
        return EventModel::levelName(event.level);
    case EventModel::SourceColumn:
        return event.source;
    default:
        return event.text;
    }
}

} // namespace

EventModel::EventModel(device::events::Events& events) : m_events(events)
{
    connect(&events, &device::events::Events::changed, this, &EventModel::onChanged);
}

void EventModel::setActive(bool active)
{
    m_isActive = active;
    update();
}

void EventModel::setPaused(bool paused)
{
    m_isPaused = paused;
    update();
}

void EventModel::clear()
{
    m_events.clear();
    refresh();
}

QString EventModel::levelName(Level level)
{
    switch (level) {
    case Level::Debug:
        return tr("Debug");
    case Level::Info:
        return tr("Info");
    case Level::Warning:
        return tr("Warning");
    case Level::Error:
        return tr("Error");
    default:
        return tr("Fatal");
    }
}

int EventModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int EventModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant EventModel::data(const QModelIndex& index, int role) const
{
    const Event& event = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return cellText(event, index.column());
    case Qt::ToolTipRole:
        return values::plainToolTip(index.column() == TextColumn ? event.text : QString());
    case Qt::BackgroundRole:
        return background(event.level);
    case LevelRole:
        return static_cast<int>(event.level);
    default:
        return {};
    }
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case LevelColumn:
        return tr("Level");
    case SourceColumn:
        return tr("Source");
    default:
        return tr("Text");
    }
}

void EventModel::onChanged()
{
    if (m_isActive && !m_isPaused)
        m_refresh.request(newsInterval);
}

void EventModel::update()
{
    m_refresh.cancel();
    if (m_isActive && !m_isPaused)
        refresh();
}

void EventModel::refresh()
{
    const Number dropped = std::min<Number>(m_events.begin() - m_first, m_rows.size());
    if (dropped > 0) {
        beginRemoveRows({}, 0, static_cast<int>(dropped) - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + static_cast<std::ptrdiff_t>(dropped));
        m_first += dropped;
        endRemoveRows();
    }
    if (m_rows.empty())
        m_first = m_events.begin();

    const Number known = m_first + m_rows.size();
    const Number end = m_events.end();
    if (known == end)
        return;
    beginInsertRows({}, rowCount(), static_cast<int>(end - m_first) - 1);
    for (Number number = known; number < end; ++number)
        m_rows.push_back(m_events.at(number));
    endInsertRows();
}

} // namespace host::workbench::events
