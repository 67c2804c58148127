// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/CallUnderWay.h"

#include <atomic>

namespace host::device::trace {

namespace {

std::atomic<const char*> current{nullptr};

} // namespace

CallUnderWay::CallUnderWay(const char* function) : m_outer(current.exchange(function)) {}

CallUnderWay::~CallUnderWay()
{
    current = m_outer;
}

const char* CallUnderWay::innermost()
{
    return current;
}

} // namespace host::device::trace
