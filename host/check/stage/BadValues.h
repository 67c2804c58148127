// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_BADVALUES_H
#define HOST_CHECK_STAGE_BADVALUES_H

#include "host/check/stage/Values.h"

#include <vector>

namespace host::check::stage {

/// Values of every type that passes between host and plugin, and of some that no plugin knows, as
/// no sound device sends them: nothing in them, the ends of their range, no numbers, very long.
const std::vector<Variant>& badValues();

} // namespace host::check::stage

#endif
