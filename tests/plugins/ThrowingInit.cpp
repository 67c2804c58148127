// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// An interface that cannot be initialised, and does not say why.
#include "TestInterface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

class ThrowingInit : public TestInterface
{
public:
    void init() const override { throw 42; }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static ThrowingInit instance;
    *interface = &instance;
}
