// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_TRACEDCALL_H
#define HOST_DEVICE_TRACE_TRACEDCALL_H

#include "host/device/trace/CallUnderWay.h"
#include "host/device/trace/Traffic.h"

#include <optional>

namespace host::device::trace {

/// A call that is under way for as long as this object lives, and how it ended.
class TracedCall
{
public:
    TracedCall(Traffic& traffic, PluginCall call);
    TracedCall(const TracedCall&) = delete;
    TracedCall& operator=(const TracedCall&) = delete;
    ~TracedCall();

    /// Notes what the call answers, and returns it.
    template <class T>
    T answer(const T& result)
    {
        m_call->result = result;
        return result;
    }

private:
    Traffic& m_traffic;
    std::shared_ptr<PluginCall> m_call;
    std::optional<CallUnderWay> m_underWay; // where it is one to the plugin
    std::chrono::steady_clock::time_point m_began = std::chrono::steady_clock::now();
    int m_exceptions; // on their way when the call began
};

} // namespace host::device::trace

#endif
