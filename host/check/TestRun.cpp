// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/TestRun.h"

#include "host/check/CommandLine.h"
#include "host/check/ResultFile.h"
#include "host/check/stage/Application.h"
#include "host/check/stage/Complaints.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Subject.h"
#include "host/check/tests/AllTests.h"
#include "host/device/trace/CrashReport.h"
#include "host/input/ActionFile.h"

#include <cstdlib>
#include <exception>
#include <optional>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace host::check {

namespace {

/// The process and all that it starts can be ended together, and none of it outlives the program.
void becomeGroup()
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none); // crashes are expected here
}

/// A seed of its own for each test, whichever others are run.
quint32 seedOf(const CommandLine& commandLine)
{
    const QByteArray name = (commandLine.test() + ' ' + commandLine.widgets().value(0)).toUtf8();
    quint32 seed = commandLine.seed();
    for (const char c : name)
        seed = (seed ^ static_cast<quint32>(static_cast<uchar>(c))) * 16777619U; // FNV-1a
    return seed;
}

QString listed(const QStringList& faults)
{
    constexpr int most = 5;
    QString words = faults.mid(0, most).join("; ");
    if (faults.size() > most)
        words += QStringLiteral("; and %1 more").arg(faults.size() - most);
    return words;
}

Result resultOf(const tests::Test& test, stage::Subject& subject)
{
    Result result;
    try {
        test.run(subject);
        result.message = subject.remark();
    } catch (const stage::Failure& failure) {
        result.status = Status::Failed;
        result.message = failure.message;
    } catch (const stage::NotApplicable& reason) {
        result.status = Status::Skipped;
        result.message = reason.reason;
    } catch (const std::exception& e) {
        result.status = Status::Failed;
        result.message = QStringLiteral("threw an exception: ") + QString::fromUtf8(e.what());
    }
    QStringList faults = subject.complaints().all();
    if (result.status == Status::Failed)
        faults.prepend(result.message);
    if (!faults.isEmpty()) {
        result.status = Status::Failed;
        result.message = listed(faults);
    }
    return result;
}

} // namespace

int runTest(int& argc, char** argv, const CommandLine& commandLine)
{
    becomeGroup();
    const device::trace::CrashReport crashReport("device-plugin-check");
    stage::Progress::keepIn(ResultFile(commandLine.resultFile()).progressFile());
    const tests::Test* const test = tests::findTest(commandLine.test());
    if (!test)
        return EXIT_FAILURE;
    if (test->scale != 1)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(test->scale));
    stage::Complaints complaints;
    const stage::Application application(argc, argv, complaints);
    const auto bytes = [](const QStringList& names) {
        QList<QByteArray> list;
        for (const QString& name : names)
            list << name.toLatin1();
        return list;
    };
    std::optional<stage::ActionList> actions;
    if (const auto content = input::ActionFile::read(commandLine.reproducedFile()))
        actions = content->actions;
    stage::Subject subject({commandLine.file(), commandLine.device(), bytes(commandLine.widgets()),
                            ResultFile(commandLine.resultFile()).journal(), actions,
                            commandLine.effort(), bytes(commandLine.sparedVariables()),
                            commandLine.recording()},
                           seedOf(commandLine), complaints);
    ResultFile(commandLine.resultFile()).write(resultOf(*test, subject));
    // What a plugin does when a process ends is no affair of this test.
    std::_Exit(EXIT_SUCCESS);
}

} // namespace host::check
