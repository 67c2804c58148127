// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/Application.h"
#include "host/workbench/Options.h"
#include "host/workbench/Session.h"

#include <QStandardPaths>

#include <optional>

using host::workbench::Application;
using host::workbench::Options;
using host::workbench::Session;

int main(int argc, char** argv)
{
    Application application("device-workbench", argc, argv);
    const Options options(
        application.arguments(),
        {Options::tr("Shows a device plugin at work, with a simulated robot to connect to."), {}});
    if (options.action() != Options::Action::Run)
        return Application::answer(options);
    if (!application.hasDisplay())
        return Application::fail(
            Application::tr("There is no display: set DISPLAY or WAYLAND_DISPLAY. Without one, "
                            "workbench-tour DIR writes pictures of the window."));
    const QString settings = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
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
