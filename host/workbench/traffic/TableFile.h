// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TRAFFIC_TABLEFILE_H
#define HOST_WORKBENCH_TRAFFIC_TABLEFILE_H

#include <QString>

class QAbstractItemModel;

namespace host::workbench::traffic {

/// Writes what @p table shows into @p fileName as comma-separated values in UTF-8, below a line
/// with the names of the columns. Until all is written an older file stays. Returns the problem,
/// with what to do, or nothing.
QString saveTable(const QAbstractItemModel& table, const QString& fileName);

} // namespace host::workbench::traffic

#endif
