// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Both widgets throw while they are built.
#include "TestInterface.h"

#include "plugin/gui/DeviceWidget.h"

#include <stdexcept>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

class ThrowingWidget : public plugin::gui::DeviceWidget
{
public:
    explicit ThrowingWidget(plugin::gui::DeviceDelegate& delegate) : DeviceWidget(delegate, nullptr)
    {
        throw std::runtime_error("no such picture");
    }
};

class Interface : public TestInterface
{
public:
    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char*, const char*, plugin::gui::DeviceDelegate& delegate) const override
    {
        return new ThrowingWidget(delegate);
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Interface instance;
    *interface = &instance;
}
