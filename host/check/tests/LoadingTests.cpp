// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/LoadingTests.h"

#include "host/check/stage/Complaints.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/RecordingHost.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/check/tests/Library.h"
#include "host/loading/NeededLibraries.h"
#include "host/loading/Symbols.h"
#include "plugin/gui/Interface.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <array>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <thread>

#include <dlfcn.h>
#include <unistd.h>

namespace host::check::tests {

namespace {

using loading::Symbol;
using plugin::gui::Interface;
using stage::fail;
using stage::load;
using stage::Progress;
using stage::RecordingHost;
using stage::settle;
using stage::Stage;
using stage::Subject;

constexpr qint64 longestLoad = 1000; // ms

template <int mode>
void loads(Subject& subject)
{
    Interface* interface = nullptr;
    entryPoint(subject, mode)(&interface);
    if (!interface)
        fail(QStringLiteral("its function %1 gives no object").arg(QLatin1String(entryName)));
}

void loadsQuickly(Subject& subject)
{
    QElapsedTimer clock;
    clock.start();
    openLibrary(subject);
    if (clock.elapsed() > longestLoad)
        fail(QStringLiteral(
                 "takes %1 ms to load; a host shows nothing for so long, %2 ms are the most")
                 .arg(QString::number(clock.elapsed()), QString::number(longestLoad)));
}

void hasTheHostsQt(Subject& subject)
{
    static const QRegularExpression qt(QStringLiteral("^libQt(\\d)\\w+\\.so"));
    for (const QByteArray& library : loading::neededLibraries(subject.file())) {
        const QString version = qt.match(QString::fromLatin1(library)).captured(1);
        if (!version.isEmpty() && version.toInt() != QT_VERSION_MAJOR)
            fail(QStringLiteral("needs Qt %1, its host has Qt %2: build it for the same Qt")
                     .arg(version, QString::number(QT_VERSION_MAJOR)));
    }
}

/// The first few of them.
QString some(const QStringList& names)
{
    constexpr int most = 8;
    const QString words = names.mid(0, most).join(", ");
    return names.size() > most ? words + QStringLiteral(" and %1 more").arg(names.size() - most)
                               : words;
}

void exportsNothingElse(Subject& subject)
{
    QStringList names;
    for (const Symbol& symbol : loading::symbols(subject.file())) {
        if (symbol.isDefined && !mayBeExported(symbol))
            names << readable(symbol.name) +
                         (symbol.binding == Symbol::Binding::Unique ? " (unique)" : "");
    }
    if (!names.isEmpty())
        fail(
            QStringLiteral("exports more than its entry point, and another plugin that exports the "
                           "same gets it: %1")
                .arg(some(names)));
}

void needsNothingElse(Subject& subject)
{
    // Without the library itself where not even that can be had: what it needs is looked for in
    // what this program has.
    void* const library =
        dlopen(QFile::encodeName(subject.file()).constData(), RTLD_LAZY | RTLD_LOCAL);
    QStringList missing;
    for (const Symbol& symbol : loading::symbols(subject.file())) {
        if (symbol.isDefined || symbol.binding != Symbol::Binding::Global)
            continue;
        if (!dlsym(library ? library : RTLD_DEFAULT, symbol.name.constData()) &&
            !dlsym(RTLD_DEFAULT, symbol.name.constData()))
            missing << readable(symbol.name);
    }
    if (!missing.isEmpty())
        fail(QStringLiteral("needs what neither the platform nor a library that it names has: %1")
                 .arg(some(missing)));
}

void givesOneFactory(Subject& subject)
{
    const EntryPoint entry = entryPoint(subject);
    Interface* first = nullptr;
    Interface* second = nullptr;
    entry(&first);
    entry(&second);
    if (first != second)
        fail(QStringLiteral("its function %1 gives another object each time")
                 .arg(QLatin1String(entryName)));
}

void givesThreadsOneFactory(Subject& subject)
{
    const EntryPoint entry = entryPoint(subject);
    std::array<Interface*, 8> objects{};
    std::atomic<std::size_t> waiting{0};
    std::vector<std::thread> threads;
    threads.reserve(objects.size());
    for (Interface*& object : objects) {
        threads.emplace_back([&] {
            ++waiting;
            while (waiting < objects.size())
                std::this_thread::yield();
            entry(&object);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const Interface* object : objects) {
        if (object != objects.front())
            fail(
                QStringLiteral("its function %1 gives different objects to threads that call it at "
                               "the same time")
                    .arg(QLatin1String(entryName)));
    }
}

void saysWhatItIs(Subject& subject)
{
    const auto check = [](const char* what, const std::string& text) {
        if (text.empty())
            fail(QStringLiteral("does not say its %1: its PluginInfo has an empty text there")
                     .arg(QLatin1String(what)));
        for (const char c : text) {
            if (static_cast<unsigned char>(c) < ' ')
                fail(QStringLiteral("its PluginInfo has a control character in its %1")
                         .arg(QLatin1String(what)));
        }
    };
    const plugin::plugin::PluginInfo& info = subject.interface().info();
    check("vendor", info.vendor());
    check("device", info.name());
}

void startsAndEnds(Subject& subject)
{
    const Interface& interface = subject.interface(); // which it calls init() on
    try {
        interface.deinit();
        interface.init();
    } catch (...) {
        fail(QStringLiteral("init() or deinit() throws an exception"));
    }
}

void offers(Subject& subject)
{
    // Not deleted: that is another test's.
    static RecordingHost host(subject.complaints());
    if (!load(subject, subject.device(), subject.widget(), host).release())
        fail(QStringLiteral("gives no widget \"%1\"").arg(QString::fromLatin1(subject.widget())));
}

/// What is nearly @p name, and what is not at all.
QByteArrayList otherThan(const QByteArray& name)
{
    constexpr int longName = 100000;
    QByteArray capitalised = name;
    if (!capitalised.isEmpty())
        capitalised[0] = capitalised.left(1).toUpper().at(0);
    QByteArrayList names{QByteArray(""),
                         name + ' ',
                         ' ' + name,
                         name + 'x',
                         name.chopped(name.isEmpty() ? 0 : 1),
                         name.toLower(),
                         name.toUpper(),
                         capitalised,
                         name + '\n',
                         QByteArray(name).replace(" ", "  "),
                         QByteArray(name).replace(" ", ""),
                         name + '\xe4',
                         QByteArray("no such name"),
                         QByteArray(longName, 'x')};
    names.removeAll(name);
    return names;
}

void givesNothingForOtherNames(Subject& subject)
{
    RecordingHost host(subject.complaints());
    const auto expectNone = [&](const QByteArray& device, const QByteArray& widget) {
        Progress::note(
            QStringLiteral("it was asked for the widget \"%1\" of the device \"%2\"")
                .arg(QString::fromLatin1(widget.left(100)), QString::fromLatin1(device.left(100))));
        if (load(subject, device, widget, host))
            fail(QStringLiteral("gives a widget for the device \"%1\" and the widget name \"%2\", "
                                "which it does not have: null is the answer to what is not known")
                     .arg(QString::fromLatin1(device.left(100)),
                          QString::fromLatin1(widget.left(100))));
    };
    const QByteArray device = subject.device();
    for (const QByteArray& widget : subject.widgets()) {
        QByteArrayList others = otherThan(device);
        others << QByteArray::fromStdString(subject.interface().info().vendor())
               << QByteArray::fromStdString(subject.interface().info().name());
        others.removeAll(device);
        for (const QByteArray& other : std::as_const(others))
            expectNone(other, widget);
        for (const QByteArray& other : otherThan(widget)) {
            if (!subject.widgets().contains(other))
                expectNone(device, other);
        }
    }
}

/// All that a widget goes through in a host.
void liveThrough(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    stage.tellEverything();
    stage.host().translate();
    stage.widget()->hide();
    stage.strike();
    settle();
}

/// Takes what the process prints to a descriptor, until it is asked for it.
class Capture
{
public:
    explicit Capture(int descriptor) : m_descriptor(descriptor), m_before(dup(descriptor))
    {
        std::fflush(nullptr);
        if (m_file.open())
            dup2(m_file.handle(), descriptor);
    }

    QString end()
    {
        std::fflush(nullptr);
        dup2(m_before, m_descriptor);
        close(m_before);
        QFile printed(m_file.fileName());
        return printed.open(QIODevice::ReadOnly)
                   ? QString::fromLocal8Bit(printed.readAll()).trimmed()
                   : QString();
    }

private:
    QTemporaryFile m_file;
    int m_descriptor;
    int m_before;
};

void printsNothing(Subject& subject)
{
    constexpr int most = 200; // characters of it in a message
    Capture out(STDOUT_FILENO);
    Capture errors(STDERR_FILENO);
    const QtMessageHandler before = // of Qt's messages another test knows
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    liveThrough(subject);
    qInstallMessageHandler(before);
    const QString printed = out.end();
    const QString complained = errors.end();
    if (!printed.isEmpty())
        fail(QStringLiteral("prints on the standard output, which belongs to its host: %1")
                 .arg(printed.left(most)));
    if (!complained.isEmpty())
        fail(QStringLiteral("prints on the standard error: %1").arg(complained.left(most)));
}

std::mutex s_warningsMutex; // threads warn, too
QStringList s_warnings;

void noteWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    // The platform without a screen says so of what only a screen can do.
    if (type == QtDebugMsg || type == QtInfoMsg || text.startsWith("This plugin does not support "))
        return;
    const std::lock_guard lock(s_warningsMutex);
    s_warnings << text;
}

void causesNoWarning(Subject& subject)
{
    qInstallMessageHandler(noteWarning);
    liveThrough(subject);
    qInstallMessageHandler(nullptr);
    if (!s_warnings.isEmpty())
        fail(QStringLiteral("causes a warning: %1").arg(some(s_warnings)));
}

} // namespace

Tests loadingTests()
{
    constexpr auto plugin = Test::Scope::Plugin;
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"load-now-local", 1, plugin, loads<RTLD_NOW | RTLD_LOCAL>,
         "loads with RTLD_NOW and RTLD_LOCAL"},
        {"load-now-global", 1, plugin, loads<RTLD_NOW | RTLD_GLOBAL>,
         "loads with RTLD_NOW and RTLD_GLOBAL"},
        {"load-lazy-local", 1, plugin, loads<RTLD_LAZY | RTLD_LOCAL>,
         "loads with RTLD_LAZY and RTLD_LOCAL"},
        {"load-lazy-global", 1, plugin, loads<RTLD_LAZY | RTLD_GLOBAL>,
         "loads with RTLD_LAZY and RTLD_GLOBAL"},
        {"load-time", 1, plugin, loadsQuickly, "loads within a second"},
        {"qt-version", 1, plugin, hasTheHostsQt, "is built for the Qt of its host"},
        {"exported-symbols", 1, plugin, exportsNothingElse, "exports its entry point alone"},
        {"undefined-symbols", 1, plugin, needsNothingElse,
         "needs nothing that the platform does not have"},
        {"factory-twice", 1, plugin, givesOneFactory, "gives the same factory each time"},
        {"factory-threads", 1, plugin, givesThreadsOneFactory,
         "gives threads that ask at once the same factory"},
        {"info", 1, plugin, saysWhatItIs, "says its vendor and its device"},
        {"init-deinit", 1, plugin, startsAndEnds, "can be initialised again after its end"},
        {offersWidget.data(), 1, widget, offers, "gives the widget that is asked for"},
        {"other-names", 1, plugin, givesNothingForOtherNames,
         "gives nothing for names that it does not know"},
        {"prints-nothing", 1, widget, printsNothing, "prints nothing"},
        {"no-warnings", 1, widget, causesNoWarning, "causes no warning of Qt's"},
    };
}

} // namespace host::check::tests
