// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_VARIANTLIBRARY_H
#define QUANDREL_VARIANTLIBRARY_H

#include "olm/core/variant/Variant.h"

/// What the two libraries of the CrossLibraryTest export. Both are built from the same source,
/// with everything else hidden.

/// Each library's own enumeration of commands, known to others by its name alone.
enum SimulationDirectExecRole
{
    SomeRole = 1003
};

enum class ValueKind
{
    Bool,
    Int,
    Text,
    Role,
    Floats,
    UnsignedInts,
    Texts,
    QtText
};

/// Stores a value of the kind.
using MakeFunction = void (*)(ValueKind, olm::core::variant::Variant*);
/// Whether the value is the one that makeVariant stores for the kind.
using ReadFunction = bool (*)(ValueKind, const olm::core::variant::Variant*);
/// Where the library has its information on the type of a vector.
using TypeAddressFunction = const void* (*)();

extern "C" {
OLM_EXPORT void makeVariant(ValueKind kind, olm::core::variant::Variant* value);
OLM_EXPORT bool readVariant(ValueKind kind, const olm::core::variant::Variant* value);
OLM_EXPORT const void* typeAddress();
}

#endif
