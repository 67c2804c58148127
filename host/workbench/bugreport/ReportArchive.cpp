// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/bugreport/ReportArchive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>

namespace host::workbench::bugreport {

namespace {

constexpr int patience = 600000; // ms; a recording may be large

bool put(const Part& part, const QString& fileName)
{
    if (!QDir().mkpath(QFileInfo(fileName).path()))
        return false;
    if (!part.file.isEmpty())
        return QFile::link(QFileInfo(part.file).absoluteFilePath(), fileName);
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(part.content) == part.content.size() &&
           file.flush();
}

} // namespace

QString ReportArchive::write(const QString& fileName, const QList<Part>& parts)
{
    const QTemporaryDir folder;
    QString name = QFileInfo(fileName).fileName();
    if (name.endsWith(QLatin1String(ending)))
        name.chop(static_cast<int>(qstrlen(ending)));
    bool isWritten = folder.isValid();
    for (const Part& part : parts)
        isWritten = isWritten && put(part, folder.filePath(name + '/' + part.name));
    const QString error =
        isWritten ? pack(folder.path(), fileName) : tr("there is no room for temporary files");
    return error.isEmpty() ? QString()
                           : tr("%1 was not written: %2. Choose another folder, or free disk "
                                "space.")
                                 .arg(fileName, error);
}

/// By tar, which every Debian has: Qt writes no archives. Returns the problem, or nothing.
QString ReportArchive::pack(const QString& folder, const QString& fileName)
{
    const QString unfinished = fileName + ".part";
    QProcess tar;
    tar.start("tar", {"--create", "--gzip", "--dereference", "--owner=0", "--group=0", "--file",
                      unfinished, "--directory", folder, "."});
    const bool isDone = tar.waitForFinished(patience) && tar.exitStatus() == QProcess::NormalExit &&
                        tar.exitCode() == 0;
    if (isDone && std::rename(QFile::encodeName(unfinished), QFile::encodeName(fileName)) == 0)
        return {};
    const QString words = isDone ? qt_error_string(errno)
                                 : QString::fromLocal8Bit(tar.readAllStandardError()).trimmed();
    QFile::remove(unfinished);
    return words.isEmpty() ? tar.errorString() : words;
}

} // namespace host::workbench::bugreport
