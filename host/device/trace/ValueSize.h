// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_VALUESIZE_H
#define HOST_DEVICE_TRACE_VALUESIZE_H

#include "olm/core/variant/Variant.h"

#include <cstddef>

namespace host::device::trace {

/// About how many bytes of memory @p value takes. Of types that this program does not know, that
/// of a number.
std::size_t sizeInMemory(const olm::core::variant::Variant& value);

} // namespace host::device::trace

#endif
