// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/CommandLine.h"
#include "robot/InfoOptions.h"
#include "robot/MessageLimit.h"
#include "robot/Robot.h"
#include "robot/TerminationSignals.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

namespace {

void print(FILE* file, const QString& text)
{
    QTextStream(file) << text << Qt::endl;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const robot::MessageLimit limit;
    const robot::TerminationSignals signals;
    QCoreApplication::setApplicationName(QStringLiteral("quandrel-robot"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUANDREL_VERSION));

    const robot::CommandLine commandLine(QCoreApplication::arguments());
    switch (commandLine.action()) {
    case robot::CommandLine::Action::ShowText:
        print(stdout, commandLine.text());
        return EXIT_SUCCESS;
    case robot::CommandLine::Action::Fail:
        print(stderr, robot::InfoOptions::refusal(commandLine.text()));
        return robot::InfoOptions::usageError;
    case robot::CommandLine::Action::Run:
        break;
    }

    robot::Robot robot(commandLine.seed());
    robot.setAllowedOrigins(commandLine.allowedOrigins());
    QString error;
    const robot::LaserLogOptions& laserLog = commandLine.laserLog();
    if (!laserLog.file().isEmpty()) {
        QStringList problems;
        if (!robot.setLaserLog(laserLog.file(), laserLog.rate(), &problems, &error)) {
            print(stderr, QStringLiteral("quandrel-robot: %1").arg(error));
            return EXIT_FAILURE;
        }
        for (const QString& problem : std::as_const(problems))
            print(stderr, QStringLiteral("quandrel-robot: %1").arg(problem));
    }
    rosbridge::protocol::Address address = commandLine.address();
    if (!robot.listen(address, &error)) {
        print(stderr, QStringLiteral("quandrel-robot: %1").arg(error));
        return EXIT_FAILURE;
    }
    address.port = robot.port();
    print(stdout, QStringLiteral("seed %1").arg(robot.seed()));
    print(stdout, QStringLiteral("listening on ws://%1").arg(address.authority()));

    QObject::connect(&signals, &robot::TerminationSignals::received, &application,
                     &QCoreApplication::quit);
    return QCoreApplication::exec();
}
