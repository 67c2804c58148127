// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERIALIZATION_ARRAYTAG_H
#define ROSBRIDGE_SERIALIZATION_ARRAYTAG_H

#include "rosbridge/serialization/MessageDefinition.h"

#include <optional>

namespace rosbridge::serialization {

/// The tag of the little-endian typed array whose bytes are those of a serialized array; nothing
/// where elements are no numbers.
inline std::optional<quint64> arrayTag(MessageDefinition::Kind kind)
{
    using Kind = MessageDefinition::Kind;
    switch (kind) {
    case Kind::UInt8:
        return 64;
    case Kind::UInt16:
        return 69;
    case Kind::UInt32:
        return 70;
    case Kind::UInt64:
        return 71;
    case Kind::Int8:
        return 72;
    case Kind::Int16:
        return 77;
    case Kind::Int32:
        return 78;
    case Kind::Int64:
        return 79;
    case Kind::Float32:
        return 85;
    case Kind::Float64:
        return 86;
    default:
        return std::nullopt;
    }
}

} // namespace rosbridge::serialization

#endif
