// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_CRASHREPORT_H
#define HOST_DEVICE_TRACE_CRASHREPORT_H

namespace host::device::trace {

/// Where the program crashes it names the plugin's function that was under way, on the standard
/// error, and then ends as it would have without this.
class CrashReport
{
public:
    /// From now on, for the whole process. @p program is its name and lives as long.
    explicit CrashReport(const char* program);
};

} // namespace host::device::trace

#endif
