// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Ratios.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace {

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string fixed(double value, int decimals)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

std::string timeText(double nanoseconds)
{
    if (nanoseconds < 1e4)
        return fixed(nanoseconds, 1) + " ns";
    return nanoseconds < 1e7 ? fixed(nanoseconds / 1e3, 1) + " us"
                             : fixed(nanoseconds / 1e6, 1) + " ms";
}

} // namespace

void Ratios::compare(const std::string& name, const std::string& with, double aim)
{
    m_comparisons.push_back({name, with, aim});
}

bool Ratios::ReportContext(const Context&)
{
    return true;
}

void Ratios::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred) {
            GetErrorStream() << name << ": " << run.error_message << '\n';
            continue;
        }
        Measured& measured = m_measured[name];
        measured.times.push_back(run.cpu_accumulated_time * 1e9 /
                                 static_cast<double>(run.iterations));
        const auto allocations = run.counters.find("allocations");
        if (allocations != run.counters.end())
            measured.allocations = allocations->second;
    }
}

void Ratios::Finalize()
{
    std::ostream& out = GetOutputStream();
    const auto line = [&out](const std::string& name, const std::string& time,
                             const std::string& allocations, const std::string& with,
                             const std::string& withTime, const std::string& ratio,
                             const std::string& aim) {
        out << std::left << std::setw(38) << name << std::right << std::setw(11) << time
            << std::setw(13) << allocations << "   " << std::left << std::setw(44) << with
            << std::right << std::setw(11) << withTime << std::setw(8) << ratio << std::setw(7)
            << aim << '\n';
    };
    line("name", "median", "allocations", "compared with", "median", "ratio", "aim");
    for (const Comparison& comparison : m_comparisons) {
        const auto measured = m_measured.find(comparison.name);
        const auto peer = m_measured.find(comparison.with);
        if (measured == m_measured.end() || peer == m_measured.end())
            continue;
        const double time = median(measured->second.times);
        const double peerTime = median(peer->second.times);
        const double allocations = measured->second.allocations;
        line(comparison.name, timeText(time), allocations < 0 ? "" : fixed(allocations, 2),
             comparison.with, timeText(peerTime), fixed(time / peerTime, 2),
             comparison.aim > 0 ? fixed(comparison.aim, 2) : "");
    }
}
