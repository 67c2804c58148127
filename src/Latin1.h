// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef LATIN1_H
#define LATIN1_H

#include <QString>

#include <string>

/// The byte strings of the device's variables as text.
namespace Latin1 {

/// All of @p bytes, zeros included.
QString decode(const std::string& bytes);
/// A character that Latin-1 lacks becomes "?".
std::string encode(const QString& text);

} // namespace Latin1

#endif
