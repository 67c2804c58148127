// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/TabOrder.h"

#include "host/workbench/window/PluginView.h"

#include <QDockWidget>
#include <QTabBar>
#include <QToolBar>

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace host::workbench::window {

namespace {

enum Zone
{
    ToolBarZone,
    DialogZone,
    DockZone,
    DockTabsZone
};

/// Where a control is in the order of reading, but for the row, which shows only beside others.
struct Place
{
    explicit Place(QWidget& control) : widget(&control)
    {
        const QWidget& window = *control.window();
        const auto inWindow = [&window](const QWidget& each) {
            return QRect(each.mapTo(&window, QPoint()), each.size());
        };
        rect = inWindow(control);
        for (const QWidget* each = &control; each != &window; each = each->parentWidget()) {
            if (qobject_cast<const QToolBar*>(each)) {
                zone = ToolBarZone;
            } else if (qobject_cast<const QDockWidget*>(each)) {
                zone = DockZone;
                dock = {inWindow(*each).top(), inWindow(*each).left()};
            } else if (qobject_cast<const PluginView*>(each)) {
                isOfDevice = true;
                view = inWindow(*each).left();
            }
        }
        // A main window's own tab bars are for its docks.
        if (qobject_cast<const QTabBar*>(&control) &&
            qobject_cast<const QMainWindow*>(control.parentWidget()))
            zone = DockTabsZone;
    }

    /// One for all controls of a tool bar, a dialog or a dock.
    std::tuple<bool, int, Zone, std::pair<int, int>> part() const
    {
        return {!isOfDevice, view, zone, dock};
    }

    QWidget* widget;
    bool isOfDevice = false;
    int view = 0;
    Zone zone = DialogZone;
    std::pair<int, int> dock; // top and left
    QRect rect;
    int row = 0;
};

/// Controls in one row differ in height, and so their tops and even their middles differ: what has
/// its middle beside the first one of the row is in the row.
void findRows(std::vector<Place>& places)
{
    std::stable_sort(places.begin(), places.end(), [](const Place& one, const Place& other) {
        return std::make_tuple(one.part(), one.rect.center().y()) <
               std::make_tuple(other.part(), other.rect.center().y());
    });
    const Place* first = nullptr;
    int row = 0;
    for (Place& place : places) {
        if (!first || first->part() != place.part() ||
            place.rect.center().y() > first->rect.bottom()) {
            first = &place;
            ++row;
        }
        place.row = row;
    }
}

/// Qt puts a dock that lies behind another beside its window, where it counts as visible.
bool isInDockBehind(const QWidget& widget)
{
    for (const QWidget* each = &widget; !each->isWindow(); each = each->parentWidget()) {
        if (qobject_cast<const QDockWidget*>(each) &&
            !each->parentWidget()->rect().intersects(each->geometry()))
            return true;
    }
    return false;
}

bool isStop(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) && widget.isVisible() && widget.isEnabled() &&
           !widget.focusProxy() && !isInDockBehind(widget);
}

} // namespace

TabOrder::TabOrder(const QWidget& window)
{
    std::vector<Place> places;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && isStop(*widget))
            places.emplace_back(*widget);
    }
    findRows(places);
    std::stable_sort(places.begin(), places.end(), [](const Place& one, const Place& other) {
        return std::make_pair(one.row, one.rect.left()) <
               std::make_pair(other.row, other.rect.left());
    });
    for (const Place& place : places)
        m_stops << place.widget;
}

QWidget* TabOrder::next(QWidget* focus, bool forward) const
{
    if (m_stops.isEmpty())
        return nullptr;
    // The editor in a table's cell is at the table's place.
    while (focus && !focus->isWindow() && !m_stops.contains(focus))
        focus = focus->parentWidget();
    const auto count = m_stops.size();
    const auto index = m_stops.indexOf(focus);
    if (index < 0)
        return forward ? m_stops.first() : m_stops.last();
    return m_stops.at((index + (forward ? 1 : count - 1)) % count);
}

} // namespace host::workbench::window
