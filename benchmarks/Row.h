// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_ROW_H
#define QUANDREL_ROW_H

#include "benchmarks/ProcessorTime.h"

#include <cstdio>
#include <string>

/// A row of docs/performance.md, which performance.py makes of all that the benchmarks print.
struct Row
{
    std::string what;
    std::string figure; ///< with its unit
    std::string peer;   ///< what it is compared with in the same run
    std::string peerFigure;
    double ratio = 0; ///< of figure to peerFigure; 0 where there is no peer
    std::string aim;  ///< of the ratio, or of the figure where it has a unit
};

inline std::string figure(double value, int decimals, const char* unit = "")
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f%s%s", decimals, value, *unit ? " " : "", unit);
    return text;
}

/// A line on standard output, with the machine's load.
inline void print(const Row& row)
{
    std::printf("| %s | %s | %s | %s | %s | %s | %.1f |\n", row.what.c_str(), row.figure.c_str(),
                row.peer.c_str(), row.peerFigure.c_str(),
                row.ratio > 0 ? figure(row.ratio, 2).c_str() : "", row.aim.c_str(), machineLoad());
    std::fflush(stdout);
}

#endif
