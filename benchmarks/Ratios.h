// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_RATIOS_H
#define QUANDREL_RATIOS_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// The rows that a run ends with: each benchmark's median processor time beside that of what it is
/// compared with in the same run. It judges nothing: a time says little on a busy machine, a
/// ratio more.
class Ratios : public benchmark::BenchmarkReporter
{
public:
    /// A row with the ratio of the medians of @p name and @p with, which should not exceed
    /// @p aim; 0 is no aim. Left out where one of them did not run.
    void compare(const std::string& name, const std::string& with, double aim);

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Comparison
    {
        std::string name;
        std::string with;
        double aim;
    };
    struct Measured
    {
        std::vector<double> times; ///< in nanoseconds, one of each repetition
        double allocations = -1;   ///< of each iteration, where they are counted
    };

    std::vector<Comparison> m_comparisons;
    std::map<std::string, Measured> m_measured;
};

#endif
