// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_TRAFFIC_H
#define HOST_DEVICE_TRACE_TRAFFIC_H

#include "host/device/trace/PluginCall.h"

#include <QObject>

#include <deque>
#include <memory>
#include <unordered_map>

namespace host::device::trace {

/// The newest calls between the host and its plugin, in the order in which they began. It keeps
/// them whether anybody looks or not: what a plugin does while it starts is over by then.
class Traffic : public QObject
{
    Q_OBJECT

public:
    using Number = quint64;

    static constexpr std::size_t capacity = 10000;
    /// The calls that are kept take about that much memory at most: fewer are kept where they are
    /// large. A dock that is paused keeps as much again.
    static constexpr std::size_t mostBytes = std::size_t{8} * 1024 * 1024;
    /// Of a larger value only its size is kept.
    static constexpr std::size_t largestValue = std::size_t{1024} * 1024;

    /// The calls that are kept: from the oldest one's number to that after the newest one's.
    Number begin() const { return m_first; }
    Number end() const { return m_first + m_calls.size(); }

    /// @p number is in the range. A call that is under way still changes.
    std::shared_ptr<const PluginCall> call(Number number) const;

    /// Numbers are not used again.
    void clear();

    /// For TracedCall alone.
    std::shared_ptr<PluginCall> callBegan(PluginCall call);
    void callEnded(PluginCall& call, std::chrono::nanoseconds duration, bool hasThrown);

Q_SIGNALS:
    /// A call began or ended. Within the call itself: whoever listens does next to nothing.
    void changed();
    /// The same of one call, with all its values as they are, however large.
    void began(const host::device::trace::PluginCall& call);
    void ended(const host::device::trace::PluginCall& call);

private:
    void dropOldest();

    std::deque<std::shared_ptr<PluginCall>> m_calls;
    Number m_first = 0;
    int m_depth = 0;
    std::size_t m_bytes = 0;
    std::unordered_map<const Arguments*, int> m_uses; // by the calls that are kept
};

} // namespace host::device::trace

#endif
