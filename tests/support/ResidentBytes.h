// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_RESIDENTBYTES_H
#define QUANDREL_RESIDENTBYTES_H

#include <QFile>

/// By how much residentBytes() may grow where nothing is kept: the address sanitizer holds back
/// what was freed, 64 MB as the tests run, and adds to it.
#ifdef QUANDREL_SANITIZERS
constexpr qint64 heldBackBytes = 200000000;
#else
constexpr qint64 heldBackBytes = 0;
#endif

/// How much of this program is in memory; 0 where the system does not tell.
inline qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    constexpr qint64 pageBytes = 4096;
    return file.readAll().split(' ').value(1).toLongLong() * pageBytes;
}

#endif
