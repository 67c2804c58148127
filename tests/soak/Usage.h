// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_USAGE_H
#define QUANDREL_USAGE_H

#include <array>
#include <cstddef>

/// What the process holds at one moment.
struct Usage
{
    enum Quantity
    {
        Resident, ///< bytes in memory
        Heap,     ///< bytes in use
        Objects,  ///< of Qt
        Timers,   ///< that run
        Files,    ///< descriptors
        Threads,
        QuantityCount
    };

    std::array<double, QuantityCount> values{};

    static Usage now();

    static const char* name(Quantity quantity);
    static bool isMemory(Quantity quantity) { return quantity <= Heap; }
    /// By which part memory may be more. What is freed stays resident in pieces, which takes
    /// minutes to settle; a leak shows in the heap.
    static double tolerance(Quantity quantity) { return quantity == Resident ? 0.05 : 0.02; }
    /// How many there may be more by chance: a timer runs or not at the moment of looking.
    static double byChance(Quantity quantity) { return quantity == Timers ? 5 : 0; }
    /// Whether a rise means a leak: a sanitizer keeps what was freed in memory for a while.
    static bool isJudged(Quantity quantity);
};

#endif
