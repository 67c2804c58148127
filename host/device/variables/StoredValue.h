// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_STOREDVALUE_H
#define HOST_DEVICE_VARIABLES_STOREDVALUE_H

#include "olm/core/variant/Variant.h"

#include <QJsonObject>

#include <optional>

/// How a value stands in a device's file: {"type": "string", "value": "10.0.0.1"}. Byte strings
/// are Latin-1. Every float reads back as the same float; those that JSON has no number for are
/// the texts "NaN", "Infinity", "-Infinity" and "-0".
namespace host::device::variables {

/// Nothing for a value of a type that is not stored.
std::optional<QJsonObject> toStored(const olm::core::variant::Variant& value);

/// False where this version does not know the entry's type: it is to be kept as it is.
bool isKnownType(const QJsonObject& entry);

/// Nothing where the entry's value is not of its type, which must be known.
std::optional<olm::core::variant::Variant> fromStored(const QJsonObject& entry);

} // namespace host::device::variables

#endif
