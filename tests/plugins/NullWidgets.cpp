// An interface that knows no widget.
#include "TestInterface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static TestInterface instance;
    *interface = &instance;
}
