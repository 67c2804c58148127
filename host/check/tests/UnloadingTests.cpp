// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/UnloadingTests.h"

#include "host/check/stage/Failure.h"
#include "host/check/stage/Ledger.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Subject.h"
#include "host/check/tests/Library.h"
#include "plugin/gui/Interface.h"

#include <QDirIterator>
#include <QFile>
#include <QSet>

#include <algorithm>

#include <link.h>
#include <unistd.h>

namespace host::check::tests {

namespace {

using loading::Symbol;
using plugin::gui::Interface;
using stage::fail;
using stage::Progress;
using stage::skip;
using stage::Subject;

/// Loads the library and starts the plugin. No widget is built: Qt keeps pointers into libraries of
/// which it has met widgets, so that no host can unload them.
void* begin(const Subject& subject)
{
    void* const library = openLibrary(subject);
    const auto entry = reinterpret_cast<EntryPoint>(dlsym(library, entryName));
    Interface* interface = nullptr;
    if (entry)
        entry(&interface);
    if (!interface)
        fail(QStringLiteral("its function %1 gives no object").arg(QLatin1String(entryName)));
    interface->init();
    interface->deinit();
    return library;
}

bool isInMemory(const Subject& subject)
{
    void* const library =
        dlopen(QFile::encodeName(subject.file()).constData(), RTLD_LAZY | RTLD_LOCAL | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library != nullptr;
}

/// Whether the library asks the system never to unload it.
bool isMadeToStay(void* library)
{
    link_map* map = nullptr;
    if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0)
        return false;
    for (const auto* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_FLAGS_1 && (entry->d_un.d_val & DF_1_NODELETE) != 0)
            return true;
    }
    return false;
}

/// Ends the test of a plugin that is still in memory: with the reason, or as a failure where there
/// is none that it could not help.
[[noreturn]] void explainStay(const Subject& subject, bool isMadeToStay)
{
    if (isMadeToStay)
        skip(QStringLiteral("the library asks the system to keep it (DF_1_NODELETE)"));
    QStringList own;
    QStringList ofPlatform;
    bool hasThreadLocals = false;
    for (const Symbol& symbol : loading::symbols(subject.file())) {
        if (symbol.isDefined && symbol.binding == Symbol::Binding::Unique)
            (mayBeExported(symbol) ? ofPlatform : own) << readable(symbol.name);
        hasThreadLocals |= symbol.name.startsWith("__cxa_thread_atexit");
    }
    if (!own.isEmpty())
        fail(QStringLiteral("stays in memory when its host unloads it, since it has symbols of "
                            "which a process has one (unique): %1")
                 .arg(own.first()));
    if (!ofPlatform.isEmpty())
        skip(QStringLiteral("the system keeps the library for a symbol of which a process has one "
                            "(unique), and which comes from the platform's headers: %1")
                 .arg(ofPlatform.first()));
    if (hasThreadLocals)
        skip(QStringLiteral("the system keeps the library until the thread ends: it has "
                            "thread-local objects with destructors"));
    fail(QStringLiteral("stays in memory when its host unloads it, and nothing in the library says "
                        "why: perhaps it opens itself"));
}

/// Ends the test where the library is still in memory afterwards.
void loadAndUnload(Subject& subject)
{
    void* const library = begin(subject);
    const bool isToStay = isMadeToStay(library);
    dlclose(library);
    if (isInMemory(subject))
        explainStay(subject, isToStay);
}

QSet<QString> resources()
{
    QSet<QString> names;
    for (QDirIterator entry(QStringLiteral(":/"), QDir::AllEntries | QDir::Hidden,
                            QDirIterator::Subdirectories);
         entry.hasNext();)
        names << entry.next();
    return names;
}

void isUnloaded(Subject& subject)
{
    loadAndUnload(subject);
}

void takesItsResources(Subject& subject)
{
    const QSet<QString> before = resources();
    loadAndUnload(subject);
    Progress::note(QStringLiteral("Qt looked for resources when the plugin was unloaded"));
    const QSet<QString> left = resources() - before;
    if (left.isEmpty())
        return;
    QStringList names = left.values();
    names.sort();
    fail(QStringLiteral("leaves %1 of Qt's resources behind when it is unloaded: %2")
             .arg(QString::number(names.size()), names.first()));
}

/// What a process has.
struct Footprint
{
    qint64 heap = stage::Ledger(0).heapBytes();
    qint64 addresses = pages() * sysconf(_SC_PAGESIZE);
    qint64 files = QDir(QStringLiteral("/proc/self/fd"))
                       .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                       .size();

    static qint64 pages()
    {
        QFile file(QStringLiteral("/proc/self/statm"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').first().toLongLong() : 0;
    }
};

#ifdef QUANDREL_SANITIZERS // which keep something of each library
constexpr qint64 mostAddresses = 65536;
#else
constexpr qint64 mostAddresses = 2048; // less than the smallest mapping
#endif

void canBeReloaded(Subject& subject)
{
    constexpr int full = 1000;
    constexpr int least = 20;
    constexpr qint64 mostBytes = 256; // for each time, on the heap
    const int cycles = subject.share(full, least);
    const auto repeat = [&](int count) {
        for (int i = 0; i < count; ++i)
            loadAndUnload(subject);
        return Footprint();
    };
    const Footprint before = repeat(cycles / 2);
    const int quarter = cycles / 4;
    const Footprint half = repeat(quarter);
    const Footprint after = repeat(quarter);
    const auto growth = [&](qint64 Footprint::*amount) { // a cache grows once
        return std::min(half.*amount - before.*amount, after.*amount - half.*amount) / quarter;
    };
    const auto expectNone = [&](qint64 Footprint::*amount, qint64 most, const char* what) {
        if (growth(amount) > most)
            fail(QStringLiteral("keeps %1 %2 each time it is loaded and unloaded")
                     .arg(QString::number(growth(amount)), QLatin1String(what)));
    };
    expectNone(&Footprint::heap, mostBytes, "bytes of memory");
    expectNone(&Footprint::addresses, mostAddresses, "bytes of mapped memory");
    expectNone(&Footprint::files, 0, "open files");
}

} // namespace

Tests unloadingTests()
{
    constexpr auto plugin = Test::Scope::Plugin;
    return {
        {"unload", 9, plugin, isUnloaded, "leaves memory when its host unloads it"},
        {"unload-resources", 9, plugin, takesItsResources,
         "takes its Qt resources with it when it is unloaded"},
        {"reload", 9, plugin, canBeReloaded, "can be loaded and unloaded a thousand times"},
    };
}

} // namespace host::check::tests
