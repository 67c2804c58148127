// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_CALLUNDERWAY_H
#define HOST_DEVICE_TRACE_CALLUNDERWAY_H

namespace host::device::trace {

/// A call into the plugin, for as long as this object lives. On the GUI thread only.
class CallUnderWay
{
public:
    /// @p function lives as long as the program.
    explicit CallUnderWay(const char* function);
    CallUnderWay(const CallUnderWay&) = delete;
    CallUnderWay& operator=(const CallUnderWay&) = delete;
    ~CallUnderWay();

    /// The function called last of those that have not returned, null for none. May be asked in a
    /// signal handler.
    static const char* innermost();

private:
    const char* m_outer;
};

} // namespace host::device::trace

#endif
