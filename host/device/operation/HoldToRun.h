// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_OPERATION_HOLDTORUN_H
#define HOST_DEVICE_OPERATION_HOLDTORUN_H

#include <chrono>
#include <optional>

namespace host::device::operation {

/// What is sent to a drive while a person holds a key or a pad: where to, twenty times a second,
/// one zero when that ends, and nothing at any other time. Once it was ended, a person must let go
/// before it begins anew.
class HoldToRun
{
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds period{50};

    /// Parts of the greatest speeds, from -1 to 1.
    struct Push
    {
        double forward = 0;
        double left = 0;
    };

    /// Held, in this direction.
    void hold(const Push& push);
    void letGo();
    /// Something other than the person ends it.
    void end();

    bool isHeld() const { return m_state != State::Free; }
    bool isRunning() const { return m_state == State::Running; }

    /// What is to be sent at @p now, if anything: asked for after each call above, and more often
    /// than each period while it runs.
    std::optional<Push> take(Clock::time_point now);

private:
    enum class State
    {
        Free,
        Running,
        Ended, ///< and still held
    };

    State m_state = State::Free;
    Push m_push;
    Clock::time_point m_due;
    bool m_owesZero = false; // what was sent last was none
};

} // namespace host::device::operation

#endif
