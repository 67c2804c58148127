// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_TEST_H
#define HOST_CHECK_TESTS_TEST_H

#include <vector>

namespace host::check::stage {
class Subject;
}

namespace host::check::tests {

/// One demand on a plugin, and what holds the plugin against it.
struct Test
{
    enum class Scope
    {
        Plugin, ///< run once
        Widget  ///< run for each widget
    };

    /// Throws a Failure where the demand is not met. In a process of its own.
    using Function = void (*)(stage::Subject& subject);

    const char* name; ///< small letters and hyphens
    int level;
    Scope scope;
    Function run;
    const char* demand; ///< what a sound plugin does, in a sentence without a full stop
    int scale = 1;      ///< pixels of the screen for each that programs see
    int patience = 1;   ///< how many times as long as others it may take
};

using Tests = std::vector<Test>;

} // namespace host::check::tests

#endif
