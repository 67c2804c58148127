// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_RECORD_H
#define QUANDREL_RECORD_H

#include "Usage.h"

#include <vector>

/// What was used at the end of each cycle, and whether it stays level: the median of the last
/// fifth of the cycles may not be above all of the second fifth; of memory, not above the second
/// fifth's median by more than Usage::tolerance() and 1 MiB. The first fifth is for warming up.
class Record
{
public:
    void add(const Usage& usage);
    std::size_t size() const { return m_usages.size(); }

    /// A line of the table, of what was added last; the first one comes with a heading.
    void printLast(double minutes) const;
    /// The verdict on each quantity in a table. False where one of them rose.
    bool judge() const;

private:
    /// Of one fifth of the cycles, from 0: the lowest first.
    std::vector<double> sorted(Usage::Quantity quantity, std::size_t fifth) const;

    std::vector<Usage> m_usages;
};

#endif
