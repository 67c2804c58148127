// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_BENCHMARKS_H
#define QUANDREL_BENCHMARKS_H

#include "Allocations.h"

#include <benchmark/benchmark.h>

#include <string>

class Ratios;

/// Each registers the benchmarks of one file, and with the table what they are compared with.
void addLaserScanMessage(Ratios& ratios);
void addRos1(Ratios& ratios);
void addFastCdr(Ratios& ratios);
void addJson(Ratios& ratios);
void addRapidJson(Ratios& ratios);
void addDialog(Ratios& ratios);
void addLaserRangeFinderDialog(Ratios& ratios);
void addPositionModel(Ratios& ratios);
void addPositionView(Ratios& ratios);
void addWorldView(Ratios& ratios);
void addLargeMessages(Ratios& ratios);
void addCamera(Ratios& ratios);
void addPlotView(Ratios& ratios);

/// @p value as something that the compiler cannot know.
template <class T>
T opaque(T value)
{
    T volatile unknown = value;
    return unknown;
}

/// Calls @p step again and again; one call counts as @p steps iterations.
template <class Step>
void measure(benchmark::State& state, Step step, int steps = 1)
{
    step(); // what is allocated once only is not counted
    const std::size_t before = allocationCount();
    while (state.KeepRunningBatch(steps))
        step();
    state.counters["allocations"] = benchmark::Counter(
        static_cast<double>(allocationCount() - before), benchmark::Counter::kAvgIterations);
}

#endif
