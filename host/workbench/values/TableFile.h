// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_TABLEFILE_H
#define HOST_WORKBENCH_VALUES_TABLEFILE_H

#include <QByteArray>
#include <QString>

#include <functional>

class QAbstractItemModel;
class QWidget;

namespace host::workbench::values {

/// What @p table shows, as comma-separated values in UTF-8, below a line with the names of the
/// columns.
QByteArray tableText(const QAbstractItemModel& table);

/// Until all is written an older file stays. Returns the problem, with what to do, or nothing.
QString writeTable(const QString& fileName, const QByteArray& content);

/// Such files, as a filter for QFileDialog.
QString tableFilter();

/// Asks for a file, in a dialog over @p parent that is not modal, and writes @p content there as it
/// is by then. @p onProblem, which lives as long as @p parent, is told what went wrong, if
/// anything.
void saveTableAs(const std::function<QByteArray()>& content, const QString& title, QWidget& parent,
                 const std::function<void(const QString& words)>& onProblem);

} // namespace host::workbench::values

#endif
