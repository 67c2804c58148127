// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Of a host only what it tells its widgets, and the loading of a plugin. Status 0 if both work.
#include "plugin/gui/DeviceHost.h"
#include "plugin/gui/HistoryBundleContent.h"
#include "plugin/gui/HostCall.h"
#include "plugin/gui/Interface.h"

#include <dlfcn.h>

#include <cstdio>

int main(int count, char** arguments)
{
    using plugin::gui::VariableKind;
    plugin::gui::HistoryBundleContent content;
    content.insert(VariableKind::Input, "brightness", 7);
    if (!content.find(VariableKind::Input, "brightness") || count != 2)
        return 1;

    void* library = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    void* factory = library ? dlsym(library, "pluginGuiInterface") : nullptr;
    if (!factory) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    plugin::gui::Interface* interface = nullptr;
    reinterpret_cast<void (*)(plugin::gui::Interface**)>(factory)(&interface);
    std::printf("%s %s\n", interface->info().vendor().c_str(), interface->info().name().c_str());
    return 0;
}
