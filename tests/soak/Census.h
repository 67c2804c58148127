// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_CENSUS_H
#define QUANDREL_CENSUS_H

#include <cstddef>

/// Counts all objects of Qt, whoever owns them, and the timers that they run. It uses the hook
/// that Qt keeps for debuggers.
namespace census {

/// Counts from now on: before the first object is made.
void begin();

/// All there are, in any thread, without those of QTimer::singleShot().
std::size_t objects();
/// Those that run in the calling thread, again without single shots.
std::size_t timers();
/// Connections that run in the calling thread, those that are just beginning or ending too.
std::size_t sockets();

} // namespace census

#endif
