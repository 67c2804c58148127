// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Surroundings.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QThreadPool>

#include <array>
#include <cfenv>
#include <clocale>
#include <csignal>
#include <exception>
#include <locale>
#include <new>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host::check::stage {

namespace {

QString address(const void* place)
{
    return QString::number(reinterpret_cast<quintptr>(place), 16);
}

QString blockedSignals()
{
    sigset_t set;
    sigemptyset(&set);
    pthread_sigmask(SIG_BLOCK, nullptr, &set);
    QStringList names;
    for (int signal = 1; signal < NSIG; ++signal) {
        if (sigismember(&set, signal) == 1)
            names << QString::number(signal);
    }
    return names.isEmpty() ? QStringLiteral("none") : names.join(' ');
}

QString handledSignals()
{
    QStringList handlers;
    for (const int signal : {SIGABRT, SIGALRM, SIGBUS, SIGCHLD, SIGFPE, SIGHUP, SIGILL, SIGINT,
                             SIGPIPE, SIGSEGV, SIGTERM, SIGUSR1, SIGUSR2}) {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        handlers << QStringLiteral("%1:%2").arg(
            QString::number(signal), address(reinterpret_cast<const void*>(action.sa_handler)));
    }
    return handlers.join(' ');
}

mode_t fileMask()
{
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

/// How numbers are rounded, and which operations end the process; not what happened so far.
QString floatingPointMode()
{
    QString mode = QStringLiteral("rounding %1, traps %2")
                       .arg(QString::number(fegetround()), QString::number(fegetexcept()));
#ifdef __SSE__
    constexpr unsigned int flags = 0x3f;
    mode += QStringLiteral(", control %1").arg(__builtin_ia32_stmxcsr() & ~flags, 0, 16);
#endif
    return mode;
}

template <class Value>
QString fingerprint(const Value& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return QString::fromLatin1(
        QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().left(8));
}

} // namespace

Surroundings::Surroundings()
{
    noteLocale();
    noteProcess();
    noteNumbers();
    noteApplication();
}

void Surroundings::note(const char* what, const QString& value)
{
    m_values.emplace_back(QString::fromLatin1(what), value);
}

void Surroundings::noteLocale()
{
    note("the locale", QString::fromLocal8Bit(std::setlocale(LC_ALL, nullptr)));
    note("the C++ locale", QString::fromStdString(std::locale().name()));
    note("Qt's default locale", QLocale().name());
}

void Surroundings::noteProcess()
{
    note("the working folder", QDir::currentPath());
    QStringList environment;
    for (char** variable = environ; *variable; ++variable)
        environment << QString::fromLocal8Bit(*variable);
    environment.sort();
    note("the environment", environment.join('\n'));
    note("the blocked signals", blockedSignals());
    note("the signal handlers", handledSignals());
    note("the mask of new files", QString::number(fileMask(), 8));
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    note("the limit of open files", QString::number(limit.rlim_cur));
    note("the handler of std::terminate",
         address(reinterpret_cast<const void*>(std::get_terminate())));
    note("the handler of operator new",
         address(reinterpret_cast<const void*>(std::get_new_handler())));
}

void Surroundings::noteNumbers()
{
    note("the floating-point mode", floatingPointMode());
}

void Surroundings::noteApplication()
{
    note("the application's palette", fingerprint(QApplication::palette()));
    note("the application's font", QApplication::font().toString());
    note("the application's style",
         QString::fromLatin1(QApplication::style()->metaObject()->className()));
    note("the application's style sheet", qApp->styleSheet());
    note("the application's name", QCoreApplication::applicationName());
    note("the application's organization", QCoreApplication::organizationName());
    note("the direction of the layout", QString::number(QApplication::layoutDirection()));
    note("whether the application quits with its last window",
         QApplication::quitOnLastWindowClosed() ? "yes" : "no");
    note("the pointer", QApplication::overrideCursor() ? "overridden" : "usual");
    note("the interval of double clicks", QString::number(QApplication::doubleClickInterval()));
    note("the threads of the global pool",
         QString::number(QThreadPool::globalInstance()->maxThreadCount()));
    const QtMessageHandler handler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(handler);
    note("the handler of Qt's messages", address(reinterpret_cast<const void*>(handler)));
}

QStringList Surroundings::changesSince(const Surroundings& before) const
{
    QStringList changes;
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const auto& [what, value] = m_values[i];
        const QString& old = before.m_values[i].second;
        if (value == old)
            continue;
        const QStringList lines = value.split('\n');
        if (lines.size() == 1) {
            changes << QStringLiteral("%1 (from %2 to %3)").arg(what, old, value);
            continue;
        }
        QStringList different = lines;
        for (const QString& line : old.split('\n'))
            different.removeAll(line);
        changes << QStringLiteral("%1 (%2)").arg(what, different.join(", ").left(200));
    }
    return changes;
}

} // namespace host::check::stage
