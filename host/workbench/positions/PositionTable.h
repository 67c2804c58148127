// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_POSITIONS_POSITIONTABLE_H
#define HOST_WORKBENCH_POSITIONS_POSITIONTABLE_H

#include "host/device/variables/Positions.h"

#include <QByteArray>

#include <optional>

class QString;

/// Positions as spreadsheets read and write them: comma-separated values in UTF-8, a position a
/// line, with the name and the target and speed of each axis, below a line with the names of the
/// columns.
namespace host::workbench::positions {

/// Every number reads back as the same float.
QByteArray toTable(const std::vector<device::variables::Position>& positions);

/// Separated by commas, semicolons or tabs; a comma in a number is a decimal one where the columns
/// are separated by something else. Nothing where @p utf8 is no such table; @p error then says what
/// is wrong, and where.
std::optional<std::vector<device::variables::Position>> fromTable(const QByteArray& utf8,
                                                                  QString* error);

} // namespace host::workbench::positions

#endif
