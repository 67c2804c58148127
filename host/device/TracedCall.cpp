#include "host/device/TracedCall.h"

#include <exception>

namespace host::device {

TracedCall::TracedCall(Traffic& traffic, Call call)
    : m_traffic(traffic),
      m_call(traffic.add(std::move(call))),
      m_exceptions(std::uncaught_exceptions())
{
}

TracedCall::~TracedCall()
{
    m_call->duration = std::chrono::steady_clock::now() - m_began;
    m_call->hasThrown = std::uncaught_exceptions() > m_exceptions;
    m_traffic.ended();
}

} // namespace host::device
