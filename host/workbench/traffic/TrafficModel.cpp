// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/traffic/TrafficModel.h"

#include "host/device/trace/ClassName.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/values/ValueText.h"

#include <QBrush>
#include <QColor>

#include <algorithm>
#include <utility>

namespace host::workbench::traffic {

using device::trace::PluginCall;

namespace {

constexpr std::chrono::milliseconds refreshInterval{100};

QString widgetText(const PluginCall& call)
{
    if (!call.widgetClass)
        return {};
    const QString className = device::trace::className(*call.widgetClass);
    return call.widgetName.isEmpty() ? className : className + " / " + call.widgetName;
}

QString argumentsText(const PluginCall& call)
{
    QStringList words;
    for (const device::trace::Argument& argument : *call.arguments) {
        const QString value = values::inWords(argument.value);
        words += argument.name.empty() ? value
                                       : QString::fromLatin1(argument.name.c_str()) + " = " + value;
    }
    return words.join(QStringLiteral(", "));
}

bool isWrite(const PluginCall& call)
{
    const QLatin1String name(call.name);
    const auto begins = [&name](const char* with) { return name.startsWith(QLatin1String(with)); };
    return call.direction == PluginCall::Direction::ToHost &&
           (begins("write") || begins("set") || begins("connectDevice") ||
            begins("disconnectDevice") || begins("simulationDirectExec"));
}

QString resultText(const PluginCall& call)
{
    if (call.hasThrown)
        return TrafficModel::tr("threw an exception");
    return call.result ? values::inWords(*call.result) : QString();
}

QString durationText(const PluginCall& call)
{
    if (!call.duration)
        return TrafficModel::tr("in progress");
    const double milliseconds = std::chrono::duration<double, std::milli>(*call.duration).count();
    const QString number = QString::number(milliseconds, 'f', 3);
    return call.isTooLong() ? TrafficModel::tr("%1 ms: too long").arg(number)
                            : TrafficModel::tr("%1 ms").arg(number);
}

} // namespace

TrafficModel::TrafficModel(device::trace::Traffic& traffic) : m_traffic(traffic)
{
    connect(&traffic, &device::trace::Traffic::changed, this, &TrafficModel::onChanged);
}

void TrafficModel::setActive(bool active)
{
    m_isActive = active;
    update();
}

void TrafficModel::setPaused(bool paused)
{
    m_isPaused = paused;
    update();
}

void TrafficModel::clear()
{
    m_traffic.clear();
    refresh();
}

int TrafficModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_calls.size());
}

int TrafficModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TrafficModel::data(const QModelIndex& index, int role) const
{
    const PluginCall& call = *m_calls[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(call, index.column());
    case Qt::ToolTipRole:
        if (call.isTooLong())
            return tr("This call blocked the window for %1 ms; it should take at most %2 ms.")
                .arg(*call.duration / std::chrono::milliseconds(1))
                .arg(PluginCall::tooLong.count());
        return index.column() == ArgumentsColumn ? values::plainToolTip(argumentsText(call))
                                                 : QVariant();
    case IsWriteRole:
        return isWrite(call);
    case Qt::BackgroundRole:
        // Half transparent, so that it suits light and dark desktops.
        return call.isTooLong() ? QBrush(QColor(220, 40, 0, 90)) : QVariant();
    default:
        return {};
    }
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case DirectionColumn:
        return tr("Direction");
    case CallColumn:
        return tr("Call");
    case WidgetColumn:
        return tr("Widget");
    case ArgumentsColumn:
        return tr("Arguments");
    case ResultColumn:
        return tr("Result");
    case DurationColumn:
        return tr("Duration");
    default:
        return {};
    }
}

QString TrafficModel::text(const PluginCall& call, int column)
{
    switch (column) {
    case TimeColumn:
        return values::inWords(call.began);
    case DirectionColumn:
        return call.direction == PluginCall::Direction::ToPlugin ? tr("host → plugin")
                                                                 : tr("plugin → host");
    case CallColumn:
        return QStringLiteral("   ").repeated(call.depth) + QLatin1String(call.name);
    case WidgetColumn:
        return widgetText(call);
    case ArgumentsColumn:
        return argumentsText(call);
    case ResultColumn:
        return resultText(call);
    case DurationColumn:
        return durationText(call);
    default:
        return {};
    }
}

void TrafficModel::onChanged()
{
    if (m_isActive && !m_isPaused)
        m_refresh.request(refreshInterval);
}

void TrafficModel::update()
{
    m_refresh.cancel();
    if (m_isActive && !m_isPaused)
        refresh();
}

void TrafficModel::refresh()
{
    const Number begin = m_traffic.begin();
    const Number end = m_traffic.end();
    const Number dropped = std::min<Number>(begin - m_first, m_calls.size());
    if (dropped > 0) {
        beginRemoveRows({}, 0, static_cast<int>(dropped) - 1);
        m_calls.erase(m_calls.begin(), m_calls.begin() + static_cast<std::ptrdiff_t>(dropped));
        m_first += dropped;
        endRemoveRows();
    }
    if (m_calls.empty())
        m_first = begin;

    for (const Number number : std::exchange(m_underWay, {})) {
        if (number < m_first)
            continue;
        const int row = static_cast<int>(number - m_first);
        Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
        if (!m_calls[static_cast<std::size_t>(row)]->duration)
            m_underWay.push_back(number);
    }

    const Number known = m_first + m_calls.size();
    if (known == end)
        return;
    beginInsertRows({}, rowCount(), static_cast<int>(end - m_first) - 1);
    for (Number number = known; number < end; ++number) {
        m_calls.push_back(m_traffic.call(number));
        if (!m_calls.back()->duration)
            m_underWay.push_back(number);
    }
    endInsertRows();
}

} // namespace host::workbench::traffic
