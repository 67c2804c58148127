// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_LIBRARY_H
#define HOST_CHECK_TESTS_LIBRARY_H

#include "host/loading/Symbols.h"

#include <QByteArray>
#include <QString>

#include <dlfcn.h>

namespace plugin::gui {
class Interface;
}

namespace host::check::stage {
class Subject;
}

namespace host::check::tests {

/// The function that a plugin exports.
inline constexpr const char* entryName = "pluginGuiInterface";
using EntryPoint = void (*)(plugin::gui::Interface**);

/// The plugin's library as dlopen() gives it, without the loader that hosts use. Fails the test
/// where that fails.
void* openLibrary(const stage::Subject& subject, int mode = RTLD_NOW | RTLD_LOCAL);

/// That function of it; fails the test where there is none.
EntryPoint entryPoint(const stage::Subject& subject, int mode = RTLD_NOW | RTLD_LOCAL);

/// Whether a plugin may export the symbol: the entry point, and what the compiler makes of the
/// headers of the standard library, Boost, Qt and the platform.
bool mayBeExported(const loading::Symbol& symbol);

/// By name, as a person writes it.
QString readable(const QByteArray& symbol);

} // namespace host::check::tests

#endif
