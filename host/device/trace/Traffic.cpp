#include "host/device/trace/Traffic.h"

namespace host::device::trace {

std::shared_ptr<const PluginCall> Traffic::call(Number number) const
{
    return m_calls[number - m_first];
}

void Traffic::clear()
{
    m_first = end();
    m_calls.clear();
}

std::shared_ptr<PluginCall> Traffic::callBegan(PluginCall call)
{
    if (m_calls.size() == capacity) {
        m_calls.pop_front();
        ++m_first;
    }
    call.depth = m_depth++;
    auto added = std::make_shared<PluginCall>(std::move(call));
    m_calls.push_back(added);
    Q_EMIT changed();
    return added;
}

void Traffic::callEnded(PluginCall& call, std::chrono::nanoseconds duration, bool hasThrown)
{
    call.duration = duration;
    call.hasThrown = hasThrown;
    --m_depth;
    Q_EMIT changed();
}

} // namespace host::device::trace
