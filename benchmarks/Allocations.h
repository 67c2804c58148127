// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_ALLOCATIONS_H
#define QUANDREL_ALLOCATIONS_H

#include <cstddef>

/// How often this thread has asked for memory since it began, in whatever library: Allocations.cpp
/// stands in front of the C library's functions, which operator new and Qt call in turn.
std::size_t allocationCount();

#endif
