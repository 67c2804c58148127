// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/TracedCall.h"

#include <exception>

namespace host::device::trace {

TracedCall::TracedCall(Traffic& traffic, PluginCall call)
    : m_traffic(traffic),
      m_call(traffic.callBegan(std::move(call))),
      m_exceptions(std::uncaught_exceptions())
{
    if (m_call->direction == PluginCall::Direction::ToPlugin)
        m_underWay.emplace(m_call->name);
}

TracedCall::~TracedCall()
{
    m_traffic.callEnded(*m_call, std::chrono::steady_clock::now() - m_began,
                        std::uncaught_exceptions() > m_exceptions);
}

} // namespace host::device::trace
