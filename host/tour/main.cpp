// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/tour/OffscreenMessages.h"
#include "host/tour/Tour.h"
#include "host/workbench/Application.h"
#include "host/workbench/Options.h"
#include "host/workbench/Session.h"
#include "robot/TerminationSignals.h"

#include <QTemporaryDir>
#include <QTimer>

using host::tour::Tour;
using host::workbench::Application;
using host::workbench::Options;

int main(int argc, char** argv)
{
    Application application("workbench-tour", argc, argv);
    const Options options(
        application.arguments(),
        {Tour::tr("Takes an automated tour of the workbench and writes pictures of it. Needs no "
                  "display. Stored settings are neither read nor changed."),
         Tour::tr("Folder for the pictures, made where it is missing.")});
    if (options.action() != Options::Action::Run)
        return Application::answer(options);
    if (!application.hasDisplay())
        host::tour::leaveOutOffscreenMessages();
    const QTemporaryDir settings;
    application.restorePreferences(options, settings.path());
    host::workbench::Session session(options, settings.path(), application.environment());
    if (!session.error().isEmpty())
        return Application::fail(session.error());

    Tour tour(options.folder(), session, application.environment());
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received, [&tour] { tour.stop(); });
    QTimer::singleShot(0, [&tour] { QCoreApplication::exit(tour.run() ? 0 : 1); });
    return QCoreApplication::exec();
}
