// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_VALUETEXT_H
#define HOST_WORKBENCH_VALUES_VALUETEXT_H

#include "olm/core/variant/Variant.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// Values as developers read and enter them. Numbers are written as in C, in every language.
namespace host::workbench::values {

/// The C++ type of what @p value holds.
QString typeName(const olm::core::variant::Variant& value);

/// On one line, and cut where it is long.
QString inWords(const olm::core::variant::Variant& value);

/// The time of day, to the microsecond.
QString inWords(std::chrono::system_clock::time_point time);

/// The types that a value can be entered in; "empty" is the first.
QStringList enterableTypes();

/// The index in enterableTypes(), -1 for a value of another type.
int enterableType(const olm::core::variant::Variant& value);

/// @p value as it is entered, empty where it cannot be.
QString toText(const olm::core::variant::Variant& value);

/// The value that @p text says in the type with the index @p type. Nothing where it says none;
/// @p error then holds what is wrong and what is right.
std::optional<olm::core::variant::Variant> fromText(int type, const QString& text, QString* error);

} // namespace host::workbench::values

#endif
