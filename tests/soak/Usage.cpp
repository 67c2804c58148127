// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Usage.h"

#include "Census.h"

#include <QDir>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

#ifdef QUANDREL_SANITIZERS
#include <sanitizer/allocator_interface.h>
#endif

namespace {

double residentBytes()
{
    QFile file("/proc/self/statm"); // in pages: all, and those in memory
    if (!file.open(QIODevice::ReadOnly))
        qFatal("/proc/self/statm cannot be read: the soak needs Linux's /proc.");
    return file.readAll().split(' ').value(1).toDouble() *
           static_cast<double>(sysconf(_SC_PAGESIZE));
}

double heapBytes()
{
#ifdef QUANDREL_SANITIZERS
    return static_cast<double>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
#endif
}

double entries(const QString& folder)
{
    return static_cast<double>(
        QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

} // namespace

Usage Usage::now()
{
    Usage usage;
    usage.values = {residentBytes(),
                    heapBytes(),
                    static_cast<double>(census::objects()),
                    static_cast<double>(census::timers()),
                    entries("/proc/self/fd"),
                    entries("/proc/self/task")};
    return usage;
}

const char* Usage::name(Quantity quantity)
{
    constexpr std::array<const char*, QuantityCount> names = {
        "resident, MiB", "heap, MiB", "objects", "timers", "files", "threads"};
    return names[quantity];
}

bool Usage::isJudged(Quantity quantity)
{
#ifdef QUANDREL_SANITIZERS
    return quantity != Resident;
#else
    return quantity != QuantityCount;
#endif
}
