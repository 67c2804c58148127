// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/Application.h"
#include "host/workbench/Options.h"
#include "host/workbench/ScriptRun.h"
#include "host/workbench/Session.h"
#include "host/workbench/bugreport/ReportArchive.h"

#include <QStandardPaths>
#include <QTextStream>

#include <cstdlib>
#include <optional>

using host::workbench::Application;
using host::workbench::Options;
using host::workbench::ScriptRun;
using host::workbench::Session;

namespace {

/// Without a window. Gives the exit status.
int saveBugReport(const Options& options, const QString& settings, Application& application)
{
    Session session(options, settings, application.environment());
    const auto parts = session.bugReport().parts();
    QTextStream out(stdout);
    for (const auto& part : parts)
        out << part.name << ": " << Application::tr("%1 bytes").arg(part.size()) << '\n';
    const QString problem =
        host::workbench::bugreport::ReportArchive::write(options.bugReportFile(), parts);
    if (!problem.isEmpty())
        return Application::fail(problem);
    out << options.bugReportFile() << '\n';
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    Application application("device-workbench", argc, argv);
    const Options options(application.arguments());
    if (options.action() != Options::Action::Run)
        return Application::answer(options);
    if (options.isAssertion())
        return Application::check(options);
    if (!options.scriptFile().isEmpty())
        return ScriptRun(options, application).run();
    const QString settings = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (!options.bugReportFile().isEmpty())
        return saveBugReport(options, settings, application);
    if (!application.hasDisplay())
        return Application::fail(
            Application::tr("There is no display: set DISPLAY or WAYLAND_DISPLAY. Without one, "
                            "--script and --tour run, which can write pictures of the window."));
    const QStringList problems = application.restorePreferences(options, settings);
    std::optional<Session> session(std::in_place, options, settings, application.environment());
    if (!session->error().isEmpty())
        return Application::fail(session->error());
    for (const QString& words : problems)
        session->window().notify(words);
    const int status = Application::show(session->window());
    session.reset();
    return status == Application::restart ? application.startAgain() : status;
}
