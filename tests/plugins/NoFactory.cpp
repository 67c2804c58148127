// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A sound shared library that is no plugin.
#include "olm/core/Export.h"

extern "C" OLM_EXPORT int nothingOfInterest();

int nothingOfInterest()
{
    return 0;
}
