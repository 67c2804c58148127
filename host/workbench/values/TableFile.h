// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_TABLEFILE_H
#define HOST_WORKBENCH_VALUES_TABLEFILE_H

#include <QString>

#include <functional>

class QAbstractItemModel;
class QWidget;

namespace host::workbench::values {

/// Writes what @p table shows into @p fileName as comma-separated values in UTF-8, below a line
/// with the names of the columns. Until all is written an older file stays. Returns the problem,
/// with what to do, or nothing.
QString saveTable(const QAbstractItemModel& table, const QString& fileName);

/// Asks for a file, in a dialog over @p parent that is not modal, and saves @p table there as it
/// is by then. @p onProblem, which lives as long as @p parent, is told what went wrong, if
/// anything.
void saveTableAs(const QAbstractItemModel& table, const QString& title, QWidget& parent,
                 const std::function<void(const QString& words)>& onProblem);

} // namespace host::workbench::values

#endif
