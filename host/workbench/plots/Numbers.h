// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_NUMBERS_H
#define HOST_WORKBENCH_PLOTS_NUMBERS_H

#include "olm/core/variant/Variant.h"

#include <QCborMap>
#include <QString>
#include <QStringList>

/// The numbers in messages and values of any shape. A path says which: "twist.linear[0].x", and ""
/// for a value that is a number itself. True is 1 and false 0.
namespace host::workbench::plots {

constexpr int mostElements = 16;   ///< of an array whose numbers are listed
constexpr int mostNumbers = 500;   ///< that are listed of one message
constexpr int longestPath = 200;   ///< characters
constexpr int deepestMessage = 20; ///< fields within fields

/// The paths of all numbers, in their order; not those of longer arrays, which are pictures and the
/// like. In JSON null stands for a number that is none.
QStringList numbersIn(const QCborMap& message);
QStringList numbersIn(const olm::core::variant::Variant& value);

/// The number there, NaN where there is none.
double numberAt(const QCborMap& message, const QString& path);
double numberAt(const olm::core::variant::Variant& value, const QString& path);

} // namespace host::workbench::plots

#endif
