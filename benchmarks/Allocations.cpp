// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Allocations.h"

#include <cstdlib>

// The C library's own names for what is replaced below.
// NOLINTBEGIN(clang-diagnostic-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t n, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
}
// NOLINTEND(clang-diagnostic-reserved-identifier)

namespace {

thread_local std::size_t allocations = 0;

} // namespace

std::size_t allocationCount()
{
    return allocations;
}

extern "C" {

void* malloc(std::size_t size) noexcept
{
    ++allocations;
    return __libc_malloc(size);
}

void* calloc(std::size_t n, std::size_t size) noexcept
{
    ++allocations;
    return __libc_calloc(n, size);
}

void* realloc(void* old, std::size_t size) noexcept
{
    ++allocations;
    return __libc_realloc(old, size);
}
}
