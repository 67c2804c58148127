#include "host/device/WidgetList.h"

#include "plugin/gui/DeviceWidget.h"

#include <QDebug>

#include <boost/core/demangle.hpp>

#include <algorithm>
#include <exception>
#include <typeinfo>

namespace host::device {

namespace {

void call(const char* what, WidgetList::Widget& widget,
          const std::function<void(WidgetList::Widget&)>& notify)
{
    const std::type_info& type = typeid(widget); // the handler may delete the widget
    const auto warn = [&](const char* reason) {
        qWarning("%s::%s threw an exception: %s", boost::core::demangle(type.name()).c_str(), what,
                 reason);
    };
    try {
        notify(widget);
    } catch (const std::exception& exception) {
        warn(exception.what());
    } catch (...) {
        warn("not a std::exception");
    }
}

} // namespace

void WidgetList::add(Widget& widget)
{
    m_entries.push_back({&widget, true});
}

void WidgetList::remove(Widget& widget)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.widget == &widget; });
    if (m_deliveries > 0)
        found->widget = nullptr;
    else
        m_entries.erase(found);
}

void WidgetList::translateNew()
{
    forEach(true, "translate", [](Widget& widget) { widget.translate(); });
}

void WidgetList::deliver(const char* what, const std::function<void(Widget&)>& notify)
{
    forEach(false, what, notify);
}

void WidgetList::forEach(bool isNew, const char* what, const std::function<void(Widget&)>& notify)
{
    ++m_deliveries;
    // By index, and not beyond the present end: a handler may append.
    const std::size_t end = m_entries.size();
    for (std::size_t i = 0; i < end; ++i) {
        Widget* const widget = m_entries[i].widget;
        if (!widget || m_entries[i].isNew != isNew)
            continue;
        m_entries[i].isNew = false;
        call(what, *widget, notify);
    }
    if (--m_deliveries > 0)
        return;
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [](const Entry& entry) { return !entry.widget; }),
                    m_entries.end());
}

} // namespace host::device
