// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/CommandLine.h"
#include "host/check/Report.h"
#include "host/check/Runner.h"
#include "host/check/TestRun.h"
#include "robot/InfoOptions.h"

#include <QCoreApplication>
#include <QSaveFile>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace {

using host::check::CommandLine;
using host::check::Results;

void print(FILE* file, const QString& text)
{
    QTextStream(file) << text << Qt::endl;
}

/// One line on a terminal, which the next one replaces; nothing in a log.
void showProgress(const QString& name, int place, int count)
{
    if (isatty(STDERR_FILENO))
        QTextStream(stderr) << QStringLiteral("\r\033[K%1/%2 %3")
                                   .arg(QString::number(place), QString::number(count), name)
                            << Qt::flush;
}

void endProgress()
{
    if (isatty(STDERR_FILENO))
        QTextStream(stderr) << "\r\033[K" << Qt::flush;
}

/// Whether it was written, or nobody asked for it.
bool write(const QString& name, const QByteArray& content)
{
    if (name.isEmpty())
        return true;
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return true;
    print(stderr, QStringLiteral("device-plugin-check: %1 cannot be written: %2")
                      .arg(name, file.errorString()));
    return false;
}

int check(const CommandLine& commandLine)
{
    print(stdout, QStringLiteral("seed %1").arg(commandLine.seed()));
    const Results results = host::check::Runner(commandLine, showProgress).run();
    endProgress();
    print(stdout, host::check::summary(results));
    const bool isWritten = write(commandLine.jsonFile(), host::check::toJson(results)) &&
                           write(commandLine.junitFile(), host::check::toJunit(results));
    return isWritten ? static_cast<int>(results.verdict()) : robot::InfoOptions::usageError;
}

/// What must be so before there is an application: no display is needed, and what a hash puts
/// first is the same in every run.
void prepareQt()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_HASH_SEED", "0");
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    argc = 1; // the options are ours, Qt has some of the same names
    QCoreApplication::setApplicationName(QStringLiteral("device-plugin-check"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CHECK_VERSION));
    prepareQt();
    if (CommandLine::isForOneTest(arguments)) // which is an application with windows
        return host::check::runTest(argc, argv, CommandLine(arguments));
    const QCoreApplication application(argc, argv);
    const CommandLine commandLine(arguments);
    switch (commandLine.action()) {
    case CommandLine::Action::ShowText:
        print(stdout, commandLine.text());
        return EXIT_SUCCESS;
    case CommandLine::Action::Fail:
        print(stderr, robot::InfoOptions::refusal(commandLine.text()));
        return robot::InfoOptions::usageError;
    default:
        return check(commandLine);
    }
}
