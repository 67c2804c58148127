// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/CrashReport.h"

#include "host/device/trace/CallUnderWay.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstring>

#include <unistd.h>

namespace host::device::trace {

namespace {

constexpr std::array crashes{SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV};

const char* s_program = "";
std::array<struct sigaction, crashes.size()> s_others; // who was in charge before

void write(const char* words)
{
    // There is nobody left to tell that it failed.
    [[maybe_unused]] const auto size = ::write(STDERR_FILENO, words, std::strlen(words));
}

/// Calls nothing but what a signal handler may.
void onCrash(int signal)
{
    write(s_program);
    if (const char* const function = CallUnderWay::innermost()) {
        write(": crashed in the plugin's function ");
        write(function);
        write(".\n");
    } else {
        write(": crashed, while no function of the plugin was called by the host.\n");
    }
    for (std::size_t i = 0; i < crashes.size(); ++i)
        sigaction(crashes[i], &s_others[i], nullptr);
    raise(signal); // once this handler has returned
}

} // namespace

CrashReport::CrashReport(const char* program)
{
    s_program = program;
    // A stack of its own: the usual one may be what is used up.
    alignas(std::max_align_t) static std::array<char, 65536> stack;
    stack_t place{};
    place.ss_sp = stack.data();
    place.ss_size = stack.size();
    sigaltstack(&place, nullptr);
    struct sigaction action = {};
    action.sa_handler = onCrash;
    action.sa_flags = SA_ONSTACK;
    for (std::size_t i = 0; i < crashes.size(); ++i)
        sigaction(crashes[i], &action, &s_others[i]);
}

} // namespace host::device::trace
