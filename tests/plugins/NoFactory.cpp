// A sound shared library that is no plugin.
#include "olm/core/Export.h"

extern "C" OLM_EXPORT int nothingOfInterest();

int nothingOfInterest()
{
    return 0;
}
