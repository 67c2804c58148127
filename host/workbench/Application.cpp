// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/Application.h"

#include "host/loading/PluginLoader.h"
#include "host/workbench/Options.h"
#include "host/workbench/replay/Assertion.h"
#include "host/workbench/window/Window.h"
#include "robot/InfoOptions.h"
#include "robot/TerminationSignals.h"

#include <QDir>
#include <QTextStream>

#include <cerrno>
#include <cstdlib>

#include <unistd.h>

namespace host::workbench {

namespace {

QStringList decoded(int count, char** arguments)
{
    QStringList decoded;
    for (int i = 0; i < count; ++i)
        decoded << QString::fromLocal8Bit(arguments[i]);
    return decoded;
}

bool findDisplay()
{
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
}

/// What Qt wants to know before there is an application. Gives the count of arguments for it: Qt
/// keeps its own options out of sight, and --plugin is one of them, so it gets none of ours.
int& prepareQt(bool hasDisplay, const QStringList& arguments)
{
    if (!hasDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen"); // Qt would end the program by a crash
    const double scale = Options::scale(arguments);
    if (scale > 1)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // icons would be coarse otherwise
#endif
    static int onlyTheName = 1;
    return onlyTheName;
}

/// Where the system keeps what a program would like to find again, but can do without.
QString stateFolder()
{
    const QString set = qEnvironmentVariable("XDG_STATE_HOME");
    const QString folder = QDir::isAbsolutePath(set) ? set : QDir::homePath() + "/.local/state";
    return folder + '/' + QCoreApplication::applicationName();
}

} // namespace

Application::Application(const char* name, int argc, char** argv)
    : m_argv(argv),
      m_crashReport(name),
      m_arguments(decoded(argc, argv)),
      m_hasDisplay(findDisplay()),
      m_application(prepareQt(m_hasDisplay, m_arguments), argv)
{
    QCoreApplication::setApplicationName(QLatin1String(name));
    QCoreApplication::setApplicationVersion(QLatin1String(WORKBENCH_VERSION));
    m_environment.language().use(preferences::Language::system());
}

QStringList Application::restorePreferences(const Options& options, const QString& settings)
{
    QStringList problems{m_environment.language().restore(settings)};
    if (!options.language().isEmpty())
        m_environment.language().use(options.language());
    problems << m_environment.appearance().restore(settings);
    if (!options.appearance().isEmpty())
        m_environment.appearance().use(options.appearance());
    problems << m_environment.lostLinks().restore(settings);
    problems << m_environment.otherNodes().restore(settings);
    problems.removeAll(QString());
    problems.removeDuplicates(); // all are in one file
    return problems;
}

int Application::answer(const Options& options)
{
    if (options.action() == Options::Action::Fail) {
        QTextStream(stderr) << robot::InfoOptions::refusal(options.text()) << '\n';
        return robot::InfoOptions::usageError;
    }
    QTextStream(stdout) << options.text() << '\n';
    return EXIT_SUCCESS;
}

int Application::fail(const QString& reason)
{
    QTextStream(stderr) << QCoreApplication::applicationName() << ": " << reason << '\n';
    return EXIT_FAILURE;
}

int Application::check(const Options& options)
{
    const loading::PluginLoader plugin(options.pluginFile().isEmpty()
                                           ? loading::PluginLoader::defaultFile()
                                           : options.pluginFile());
    const replay::Assertion assertion(options.replayFile(), plugin);
    const QString words = assertion.words().join('\n');
    if (!assertion.isSame())
        return fail(words);
    QTextStream(stdout) << words << '\n';
    return EXIT_SUCCESS;
}

int Application::show(window::Window& window)
{
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received, &window, [&window] {
        window.close(); // which keeps the places of its docks
        QCoreApplication::quit();
    });
    QObject::connect(&window, &window::Window::restartRequested, &window, [&window] {
        window.close();
        QCoreApplication::exit(restart);
    });
    for (const loading::Failure& failure : window.failures())
        fail(failure.text());
    window.restoreLayout(stateFolder());
    window.show();
    return QApplication::exec();
}

int Application::startAgain()
{
    execv("/proc/self/exe", m_argv);
    return fail(tr("The program cannot be started again: %1").arg(qt_error_string(errno)));
}

} // namespace host::workbench
