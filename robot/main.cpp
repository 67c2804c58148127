// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/CommandLine.h"
#include "robot/InfoOptions.h"
#include "robot/MessageLimit.h"
#include "robot/PlayedRobot.h"
#include "robot/Robot.h"
#include "robot/TerminationSignals.h"
#include "robot/recording/BagPlayer.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

namespace {

void print(FILE* file, const QString& text)
{
    QTextStream(file) << text << Qt::endl;
}

void printProblems(const QStringList& problems)
{
    for (const QString& problem : problems)
        print(stderr, QStringLiteral("quandrel-robot: %1").arg(problem));
}

/// Null, and in @p error why, if its recording cannot be used.
std::unique_ptr<robot::Robot> simulatedRobot(const robot::CommandLine& commandLine, QString* error)
{
    auto robot = std::make_unique<robot::Robot>(commandLine.seed());
    const robot::LaserLogOptions& laserLog = commandLine.laserLog();
    QStringList problems;
    if (!laserLog.file().isEmpty() &&
        !robot->setLaserLog(laserLog.file(), laserLog.rate(), &problems, error))
        return nullptr;
    printProblems(problems);
    return robot;
}

/// Null, and in @p error why, if its bag cannot be played.
std::unique_ptr<robot::PlayedRobot> playedRobot(const robot::PlayOptions& play, QString* error)
{
    auto player = robot::recording::BagPlayer::open(play.file(), play.options(), error);
    if (!player)
        return nullptr;
    auto robot = std::make_unique<robot::PlayedRobot>(std::move(player));
    printProblems(robot->problems());
    return robot;
}

template <class AnyRobot>
bool listen(AnyRobot& robot, const robot::CommandLine& commandLine, const QString& what,
            QString* error)
{
    rosbridge::protocol::Address address = commandLine.address();
    robot.setAllowedOrigins(commandLine.allowedOrigins());
    if (!robot.listen(address, error))
        return false;
    address.port = robot.port();
    print(stdout, what);
    print(stdout, QStringLiteral("listening on ws://%1").arg(address.authority()));
    return true;
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

    QObject::connect(&signals, &robot::TerminationSignals::received, &application,
                     &QCoreApplication::quit);
    QString error;
    std::unique_ptr<robot::Robot> simulated;
    std::unique_ptr<robot::PlayedRobot> played;
    const robot::PlayOptions& play = commandLine.play();
    bool isListening = false;
    if (play.file().isEmpty()) {
        simulated = simulatedRobot(commandLine, &error);
        isListening = simulated && listen(*simulated, commandLine,
                                          QStringLiteral("seed %1").arg(simulated->seed()), &error);
    } else {
        played = playedRobot(play, &error);
        isListening = played && listen(*played, commandLine,
                                       QStringLiteral("playing %1").arg(play.file()), &error);
    }
    if (isListening)
        return QCoreApplication::exec();
    print(stderr, QStringLiteral("quandrel-robot: %1").arg(error));
    return EXIT_FAILURE;
}
