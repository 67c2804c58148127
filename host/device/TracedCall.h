#ifndef HOST_DEVICE_TRACEDCALL_H
#define HOST_DEVICE_TRACEDCALL_H

#include "host/device/Traffic.h"

namespace host::device {

/// A call that is under way for as long as this object lives, and how it ended.
class TracedCall
{
public:
    TracedCall(Traffic& traffic, Call call);
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
    std::shared_ptr<Call> m_call;
    std::chrono::steady_clock::time_point m_began = std::chrono::steady_clock::now();
    int m_exceptions; // on their way when the call began
};

} // namespace host::device

#endif
