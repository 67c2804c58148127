// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_EVENTS_EVENTS_H
#define HOST_DEVICE_EVENTS_EVENTS_H

#include "host/device/events/Event.h"

#include <QObject>

#include <deque>

namespace host::device::events {

/// The newest events of one device, in the order in which they came: kept whether anybody looks or
/// not, since people look when something has gone wrong.
class Events : public QObject
{
    Q_OBJECT

public:
    using Number = quint64;

    static constexpr std::size_t capacity = 5000;
    /// Characters of a line: a longer one is cut, and says so by an ellipsis.
    static constexpr int longestText = 1000;

    /// The events that are kept: from the oldest one's number to that after the newest one's.
    Number begin() const { return m_first; }
    Number end() const { return m_first + m_events.size(); }

    /// @p number is in the range.
    const Event& at(Number number) const
    {
        return m_events[static_cast<std::size_t>(number - m_first)];
    }

    void add(Event event);

    /// Numbers are not used again.
    void clear();

Q_SIGNALS:
    /// With each event, of which there may be thousands a second.
    void changed();

private:
    std::deque<Event> m_events;
    Number m_first = 0;
};

} // namespace host::device::events

#endif
