// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Ratios.h"

#include "Row.h"

#include <algorithm>

namespace {

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string timeText(double nanoseconds)
{
    if (nanoseconds < 1e4)
        return figure(nanoseconds, 1, "ns");
    return nanoseconds < 1e7 ? figure(nanoseconds / 1e3, 1, "us")
                             : figure(nanoseconds / 1e6, 1, "ms");
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
    for (const Comparison& comparison : m_comparisons) {
        const auto measured = m_measured.find(comparison.name);
        const auto peer = m_measured.find(comparison.with);
        if (measured == m_measured.end() || peer == m_measured.end())
            continue;
        const double time = median(measured->second.times);
        const double peerTime = median(peer->second.times);
        const double allocations = measured->second.allocations;
        std::string text = timeText(time);
        if (allocations >= 0)
            text += ", " + figure(allocations, 0, "allocations");
        print(Row{comparison.name, text, comparison.with, timeText(peerTime), time / peerTime,
                  comparison.aim > 0 ? figure(comparison.aim, 2) : ""});
    }
}
