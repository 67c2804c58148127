// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_PROCESSORTIME_H
#define QUANDREL_PROCESSORTIME_H

#include <QDir>
#include <QFile>

#include <cstdlib>

/// What the threads of the process @p id have used so far, in nanoseconds; 0 where there is no such
/// process. The system's own count for people has steps of 10 ms.
inline qint64 processorTimeOf(qint64 id)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(id));
    qint64 sum = 0;
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(threads.filePath(thread + QStringLiteral("/schedstat")));
        if (file.open(QIODevice::ReadOnly))
            sum += file.readLine().split(' ').first().toLongLong();
    }
    return sum;
}

/// How many programs want a processor, as the average of the last minute.
inline double machineLoad()
{
    double load = 0;
    return getloadavg(&load, 1) == 1 ? load : -1;
}

#endif
