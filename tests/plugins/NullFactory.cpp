// A factory that has nothing to give.
#include "plugin/gui/Interface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    *interface = nullptr;
}
