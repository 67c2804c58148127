// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_VALUES_H
#define HOST_CHECK_STAGE_VALUES_H

#include "host/check/stage/Usage.h"
#include "olm/core/variant/Variant.h"

#include <QString>

#include <vector>

namespace host::check::stage {

using Variant = olm::core::variant::Variant;

/// Values of every type that passes between host and plugin, of a size that devices have.
const std::vector<Variant>& usualValues();

/// The type and the value, on one line.
QString inWords(const Variant& value);

/// The variable with the value that it got.
QString inWords(const Variable& variable, const Variant& value);

} // namespace host::check::stage

#endif
