// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A plugin whose dialog crashes when it is translated.
#include "TestInterface.h"

#include "plugin/gui/DeviceWidget.h"

#include <csignal>
#include <cstring>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

class CrashingDialog : public plugin::gui::DeviceWidget
{
public:
    explicit CrashingDialog(plugin::gui::DeviceDelegate& delegate) : DeviceWidget(delegate, nullptr)
    {
    }

    void translate() override { std::raise(SIGSEGV); }
};

class Interface : public TestInterface
{
public:
    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char*, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        return std::strcmp(widget, "dialog") == 0 ? new CrashingDialog(delegate) : nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Interface instance;
    *interface = &instance;
}
