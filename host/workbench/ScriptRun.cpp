// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/ScriptRun.h"

#include "host/workbench/Application.h"
#include "host/workbench/OffscreenMessages.h"
#include "host/workbench/Options.h"
#include "host/workbench/Session.h"
#include "host/workbench/script/JUnitReport.h"
#include "host/workbench/script/Player.h"
#include "host/workbench/script/Scene.h"
#include "olm/qt/replaceFile.h"
#include "robot/InfoOptions.h"
#include "robot/TerminationSignals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdlib>

namespace host::workbench {

using robot::InfoOptions;
using script::Player;

namespace {

constexpr qint64 mostBytes = 1000000;

/// Prints @p problems. Gives the exit status for a script that is wrong.
int refuse(const QStringList& problems)
{
    for (const QString& problem : problems)
        QTextStream(stderr) << QCoreApplication::applicationName() << ": " << problem << '\n';
    return InfoOptions::usageError;
}

} // namespace

ScriptRun::ScriptRun(const Options& options, Application& application)
    : m_options(options),
      m_application(application)
{
}

ScriptRun::~ScriptRun() = default;

int ScriptRun::run()
{
    const QString name = QFileInfo(m_options.scriptFile()).fileName();
    const auto read = this->read();
    if (!read)
        return refuse({tr("%1 cannot be read").arg(m_options.scriptFile())});
    const script::text::ScriptText text(*read, Player::grammar());
    QStringList mistakes;
    for (const QString& problem : text.problems())
        mistakes << name + ':' + problem;
    if (!mistakes.isEmpty())
        return refuse(mistakes);
    const QString output = QDir(m_options.outputFolder()).absolutePath();
    if (!QDir().mkpath(output))
        return Application::fail(tr("%1 is not a folder, and none can be made there").arg(output));
    if (QGuiApplication::platformName() == "offscreen")
        leaveOutOffscreenMessages();
    const QString problem = open({});
    if (!problem.isEmpty())
        return Application::fail(problem);
    for (const loading::Failure& failure : window().failures())
        Application::fail(failure.text());

    script::Scene scene(*this, output, QFileInfo(m_options.scriptFile()).absolutePath());
    Player player(scene, text, name);
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received, &player,
                     &Player::interrupt);
    QObject::connect(&player, &Player::finished, qApp, [] { QCoreApplication::exit(); });
    player.start();
    QCoreApplication::exec();

    QStringList problems{player.problem()};
    if (!m_options.reportFile().isEmpty())
        problems << write(m_options.reportFile(), script::junitReport(name, player.steps()));
    problems.removeAll(QString());
    for (const QString& each : std::as_const(problems))
        Application::fail(each);
    return problems.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Returns the problem, or nothing.
QString ScriptRun::write(const QString& file, const QByteArray& content)
{
    const QString error = olm::qt::replaceFile(file, content);
    return error.isEmpty() ? QString() : tr("%1 cannot be written: %2").arg(file, error);
}

/// Nothing where the file cannot be read.
std::optional<QString> ScriptRun::read() const
{
    QFile file(m_options.scriptFile());
    // Opening a pipe would wait for a writer.
    if (!QFileInfo(file).isFile() || file.size() > mostBytes || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(file.readAll());
}

window::Window& ScriptRun::window()
{
    return m_session->window();
}

QString ScriptRun::open(const QStringList& options)
{
    const QStringList arguments = m_application.arguments() + options;
    const Options all(arguments);
    if (all.action() != Options::Action::Run)
        return all.text();
    if (Options::scale(arguments) != Options::scale(m_application.arguments()))
        return tr("--scale can be given on the command line only");
    m_session.reset(); // before another one has the same robots and devices
    m_application.restorePreferences(all, m_settings.path());
    m_session = std::make_unique<Session>(all, m_settings.path(), m_application.environment());
    return m_session->error();
}

} // namespace host::workbench
