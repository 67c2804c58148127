// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/Runner.h"

#include "host/check/CommandLine.h"
#include "host/check/Reducer.h"
#include "host/check/ResultFile.h"
#include "host/check/stage/Progress.h"
#include "host/check/tests/AllTests.h"
#include "host/check/tests/LoadingTests.h"
#include "host/check/tests/PersonTests.h"
#include "host/input/ActionFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <utility>

namespace host::check {

namespace {

using tests::Test;

constexpr int lastWordsPatience = 2000; // ms
constexpr std::size_t mostShown = 8;    // actions in a message
constexpr int mostOutput = 300;         // characters of it in a message

bool isOffer(const Test& test)
{
    return QLatin1String(test.name) == tests::offersWidget;
}

/// The function of the plugin that was under way, as the crash report of the process says.
QString functionIn(const QString& errors)
{
    static const QRegularExpression report(
        QStringLiteral("crashed in the plugin's function (.*)\\.$"),
        QRegularExpression::MultilineOption);
    return report.match(errors).captured(1);
}

/// In which function, while what, and what the process printed about it.
QString circumstances(const QString& progress, const QString& errors)
{
    QString words;
    if (const QString function = functionIn(errors); !function.isEmpty())
        words += QStringLiteral(" in its function %1").arg(function);
    if (!progress.isEmpty())
        words += QStringLiteral(", after: %1").arg(progress);
    return words;
}

/// What a sanitizer or an assertion said first.
QString reported(const QString& errors)
{
    static const QRegularExpression report(QStringLiteral(
        "(ERROR: \\w+Sanitizer: .*|runtime error: .*|Assertion .* failed.*|terminate called.*"
        "|ASSERT.*|what\\(\\): .*)"));
    const QString words = report.match(errors).captured(1).left(mostOutput);
    return words.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(words);
}

} // namespace

Runner::Runner(const CommandLine& commandLine, OnStart onStart)
    : m_commandLine(commandLine),
      m_onStart(std::move(onStart))
{
}

Results Runner::run()
{
    Results results;
    results.plugin = m_commandLine.file();
    results.seed = m_commandLine.seed();
    results.level = m_commandLine.level();
    const tests::Tests& known = tests::allTests();
    const bool areWidgetsNeeded = std::any_of(known.begin(), known.end(), [&](const Test& test) {
        return test.scope == Test::Scope::Widget && m_commandLine.isWanted(test);
    });
    const QList<Job> all = jobs(areWidgetsNeeded ? offeredWidgets() : QStringList());
    int place = 0;
    for (const Job& job : all) {
        Result result;
        result.test = job.test->name;
        result.widget = job.widget;
        m_onStart(result.name(), ++place, static_cast<int>(all.size()));
        const bool isKnown = isOffer(*job.test) && m_offers.contains(job.widget);
        results.tests << (isKnown ? m_offers[job.widget] : runJob(job));
    }
    return results;
}

QStringList Runner::offeredWidgets()
{
    QStringList offered;
    const Test* const test = tests::findTest(tests::offersWidget);
    for (const QString& widget : m_commandLine.widgets()) {
        m_offers[widget] = runJob({test, widget});
        if (m_offers[widget].status == Status::Passed)
            offered << widget;
    }
    return offered;
}

QList<Runner::Job> Runner::jobs(const QStringList& offered) const
{
    const bool areAllExpected = m_commandLine.areWidgetsNamed() || offered.isEmpty();
    QList<Job> jobs;
    for (const Test& test : tests::allTests()) {
        if (!m_commandLine.isWanted(test))
            continue;
        QStringList widgets{QString()};
        if (isOffer(test) && areAllExpected)
            widgets = m_commandLine.widgets();
        else if (test.scope == Test::Scope::Widget && !offered.isEmpty())
            widgets = offered;
        for (const QString& widget : std::as_const(widgets))
            jobs << Job{&test, widget};
    }
    return jobs;
}

Result Runner::runJob(const Job& job)
{
    Result result;
    QElapsedTimer clock;
    clock.start();
    if (m_commandLine.isSkipped(*job.test)) {
        result.status = Status::Skipped;
        result.message = QStringLiteral("left out by --skip");
    } else if (job.test->scope == Test::Scope::Widget && job.widget.isEmpty()) {
        result.status = Status::Skipped;
        result.message = QStringLiteral("the plugin gives no widget to look at");
    } else {
        result = runProcess(job, m_commandLine.reproducedFile());
        const bool isMonkey = QLatin1String(job.test->name) == QLatin1String(tests::monkey);
        if (isMonkey && result.status != Status::Passed && m_commandLine.reproducedFile().isEmpty())
            result.message += reproduction(job, result);
    }
    result.test = job.test->name;
    result.level = job.test->level;
    result.widget = job.widget;
    result.seconds = static_cast<double>(clock.elapsed()) / 1000;
    return result;
}

QString Runner::reproduction(const Job& job, const Result& result)
{
    constexpr int mostAttempts = 150;
    constexpr int mostTime = 5; // as a multiple of what a test may take
    const auto journal = input::ActionFile::read(ResultFile(m_folder.filePath("result")).journal());
    if (!journal || journal->actions.empty())
        return {};
    const QString trial = m_folder.filePath("trial.actions");
    const auto write = [&](const QString& name, const stage::ActionList& actions) {
        input::ActionFile file(name, job.widget);
        for (const stage::Action& action : actions)
            file.add(action);
        return file.isGood();
    };
    QElapsedTimer clock;
    clock.start();
    Reducer reducer(
        [&](const stage::ActionList& actions) {
            return clock.elapsed() < qint64{1000} * mostTime * m_commandLine.timeout() &&
                   write(trial, actions) && runProcess(job, trial).status == result.status;
        },
        result.status == Status::TimedOut ? 1 : mostAttempts); // each takes all its time
    const stage::ActionList shortest = reducer.reduced(journal->actions);
    const QString name = QStringLiteral("%1-%2-%3.actions")
                             .arg(QFileInfo(m_commandLine.file()).completeBaseName(), job.widget,
                                  QString::number(m_commandLine.seed()));
    QStringList words;
    for (std::size_t i = 0; i < shortest.size() && i < mostShown; ++i)
        words << shortest[i].inWords();
    return QStringLiteral("; %1 actions bring it about (%2%3), which --reproduce %4 does again")
        .arg(QString::number(shortest.size()), words.join(", "),
             shortest.size() > mostShown ? QStringLiteral(" …") : QString(),
             write(name, shortest) ? name : QStringLiteral("FILE, if it could be written,"));
}

Result Runner::runProcess(const Job& job, const QString& reproducedFile)
{
    const ResultFile file(m_folder.filePath("result"));
    QFile::remove(m_folder.filePath("result"));
    QFile::remove(file.progressFile());

    QStringList arguments{"--run-one", job.test->name,
                          "--result",  m_folder.filePath("result"),
                          "--seed",    QString::number(m_commandLine.seed()),
                          "--effort",  QString::number(m_commandLine.effort())};
    if (!reproducedFile.isEmpty())
        arguments << "--reproduce" << reproducedFile;
    if (!m_commandLine.recording().isEmpty())
        arguments << "--recording" << m_commandLine.recording();
    if (!m_commandLine.device().isEmpty())
        arguments << "--device" << m_commandLine.device();
    for (const QString& variable : m_commandLine.sparedVariables())
        arguments << "--spare" << variable;
    for (const QString& widget :
         job.widget.isEmpty() ? m_commandLine.widgets() : QStringList(job.widget))
        arguments << "--widget" << widget;
    QProcess process;
    process.setStandardErrorFile(m_folder.filePath("errors"));
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setWorkingDirectory(m_folder.path());
    process.start(QCoreApplication::applicationFilePath(), arguments << m_commandLine.file());
    const bool hasStarted = process.waitForStarted();
    const auto group = static_cast<pid_t>(process.processId());
    const int patience = m_commandLine.timeout() * job.test->patience; // s
    const bool isInTime = process.waitForFinished(patience * 1000);
    if (!isInTime && hasStarted) {
        kill(group, SIGABRT); // it says in which function it is
        process.waitForFinished(lastWordsPatience);
    }
    if (hasStarted)
        kill(-group, SIGKILL); // and whatever it started
    process.waitForFinished();

    QFile errorFile(m_folder.filePath("errors"));
    const QString errors = errorFile.open(QIODevice::ReadOnly)
                               ? QString::fromLocal8Bit(errorFile.readAll())
                               : QString();
    const QString where = circumstances(stage::Progress::noted(file.progressFile()), errors);
    if (const auto result = file.read(); result && isInTime)
        return *result;
    Result result;
    if (!hasStarted) {
        result.status = Status::Failed;
        result.message = QStringLiteral("the test could not be started: ") + process.errorString();
    } else if (!isInTime) {
        result.status = Status::TimedOut;
        result.message = QStringLiteral("did not come back within %1 s").arg(patience) + where;
    } else if (process.exitStatus() == QProcess::CrashExit) {
        result.status = Status::Crashed;
        result.message = QStringLiteral("crashed (%1)").arg(strsignal(process.exitCode())) + where +
                         reported(errors);
    } else if (!reported(errors).isEmpty()) { // a sanitizer ends a process with a status
        result.status = Status::Crashed;
        result.message = QStringLiteral("crashed") + where + reported(errors);
    } else {
        result.status = Status::Failed;
        result.message = QStringLiteral("ended the process of its host, with status %1")
                             .arg(process.exitCode()) +
                         where;
    }
    return result;
}

} // namespace host::check
