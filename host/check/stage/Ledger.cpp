// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Ledger.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QThread>
#include <QWidget>

#include <mutex>
#include <unordered_set>

#include <dlfcn.h>
#include <malloc.h>

namespace host::check::stage {

namespace {

std::mutex s_mutex; // objects come and go in any thread
std::unordered_set<QObject*> s_objects;

void onAdded(QObject* object)
{
    const std::lock_guard lock(s_mutex);
    s_objects.insert(object);
}

void onRemoved(QObject* object)
{
    const std::lock_guard lock(s_mutex);
    s_objects.erase(object);
}

int entriesIn(const char* folder)
{
    return static_cast<int>(QDir(QLatin1String(folder))
                                .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                                .size());
}

int timersOf(QObject* object)
{
    return static_cast<int>(QAbstractEventDispatcher::instance()->registeredTimers(object).size());
}

qint64 bytesInUse()
{
    // A sanitizer has a heap of its own.
    static const auto ofSanitizer = reinterpret_cast<std::size_t (*)()>(
        dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes"));
    if (ofSanitizer)
        return static_cast<qint64>(ofSanitizer());
    const struct mallinfo2 info = mallinfo2();
    // And what has pages of its own.
    return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
}

} // namespace

void Ledger::watchObjects()
{
    // Qt's own hooks for debuggers: a version, a size, Qt's version, then two functions. They
    // are looked up, since whoever links them is bound to one release of Qt.
    constexpr int add = 3;
    constexpr int remove = 4;
    if (auto* const hooks = static_cast<quintptr*>(dlsym(RTLD_DEFAULT, "qtHookData"))) {
        hooks[add] = reinterpret_cast<quintptr>(&onAdded);
        hooks[remove] = reinterpret_cast<quintptr>(&onRemoved);
    }
}

Ledger::Ledger(int connections) : m_heapBytes(bytesInUse())
{
    {
        const std::lock_guard lock(s_mutex);
        int timers = timersOf(qApp); // which was there before anybody watched
        for (QObject* object : s_objects) {
            ++m_counts[QStringLiteral("objects of class %1")
                           .arg(object->metaObject()->className())];
            if (object->thread() == QThread::currentThread())
                timers += timersOf(object);
        }
        m_counts[QStringLiteral("running timers")] = timers;
    }
    m_counts[QStringLiteral("windows")] = static_cast<int>(QApplication::topLevelWidgets().size());
    m_counts[QStringLiteral("connections with the host's objects")] = connections;
    m_counts[QStringLiteral("threads")] = entriesIn("/proc/self/task");
    m_counts[QStringLiteral("open files or sockets")] = entriesIn("/proc/self/fd");
}

QStringList Ledger::growthSince(const Ledger& before) const
{
    QStringList grown;
    for (auto entry = m_counts.begin(); entry != m_counts.end(); ++entry) {
        const int more = entry.value() - before.m_counts.value(entry.key());
        if (more > 0)
            grown << QStringLiteral("%1 %2").arg(QString::number(more), entry.key());
    }
    return grown;
}

} // namespace host::check::stage
