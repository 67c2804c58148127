// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_BUGREPORT_REPORTARCHIVE_H
#define HOST_WORKBENCH_BUGREPORT_REPORTARCHIVE_H

#include "host/workbench/bugreport/BugReport.h"

#include <QCoreApplication>
#include <QString>

namespace host::workbench::bugreport {

/// Writes a report as a file for sending: a compressed archive, "report.tar.gz", with a folder of
/// its name in it.
class ReportArchive
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::bugreport::ReportArchive)

public:
    /// All @p parts, which is complete by the time that it has the name @p fileName. Returns the
    /// problem, with what to do, or nothing.
    static QString write(const QString& fileName, const QList<Part>& parts);

    static constexpr const char* ending = ".tar.gz";

private:
    static QString pack(const QString& folder, const QString& fileName);
};

} // namespace host::workbench::bugreport

#endif
