// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "benchmarks/ProcessorTime.h"
#include "benchmarks/Row.h"

#include <QApplication>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <optional>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto look = 2ms;
constexpr auto rest = 100ms;
constexpr auto patience = 60s;
constexpr int startPatience = 30000;
constexpr const char* emptyOption = "--empty";

/// From the start of a program until it rests.
struct Opening
{
    Milliseconds time;
    Milliseconds processorTime;
};

/// Finds nothing that an earlier start left behind.
QProcessEnvironment freshEnvironment(const QString& folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CONFIG_HOME"})
        environment.insert(QLatin1String(variable), folder);
    return environment;
}

/// Whether a thread of the process runs, or would if other programs let it.
bool isAtWork(qint64 process)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(threads.filePath(thread + QStringLiteral("/stat")));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray line = file.readLine();
        if (line.mid(line.lastIndexOf(')') + 2, 1) != "S")
            return true;
    }
    return false;
}

/// None if the program ended by itself or never came to rest.
std::optional<Opening> open(const QString& program, const QStringList& arguments)
{
    const QTemporaryDir folder;
    QProcess process;
    process.setProcessEnvironment(freshEnvironment(folder.path()));
    process.setProgram(program);
    process.setArguments(arguments);
    const auto start = Clock::now();
    process.start();
    if (!process.waitForStarted(startPatience))
        return std::nullopt;

    qint64 used = 0;
    auto change = start;
    auto now = start;
    do {
        std::this_thread::sleep_for(look);
        now = Clock::now();
        const qint64 usedNow = processorTimeOf(process.processId());
        if (usedNow != used || isAtWork(process.processId()))
            change = now;
        used = usedNow;
    } while (now - change < rest && now - start < patience);
    const bool rests = now - change >= rest && processorTimeOf(process.processId()) > 0;
    process.terminate();
    process.waitForFinished(startPatience);
    if (!rests)
        return std::nullopt;
    return Opening{change - start, std::chrono::nanoseconds(used)};
}

/// The median of several times.
std::optional<Opening> medianOf(const QString& program, const QStringList& arguments)
{
    std::array<Milliseconds, 5> times{};
    std::array<Milliseconds, 5> processorTimes{};
    for (std::size_t i = 0; i < times.size(); ++i) {
        const std::optional<Opening> opening = open(program, arguments);
        if (!opening) {
            std::fprintf(stderr, "%s does not come to rest.\n", qPrintable(program));
            return std::nullopt;
        }
        times[i] = opening->time;
        processorTimes[i] = opening->processorTime;
    }
    std::sort(times.begin(), times.end());
    std::sort(processorTimes.begin(), processorTimes.end());
    return Opening{times[times.size() / 2], processorTimes[times.size() / 2]};
}

void print(const std::string& what, Milliseconds time, const char* peer, Milliseconds peerTime,
           const char* aim = "")
{
    print(Row{what, figure(time.count(), 0, "ms"), peer, figure(peerTime.count(), 0, "ms"),
              time / peerTime, aim});
}

int showEmptyWindow(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc > 1 && qstrcmp(argv[1], emptyOption) == 0)
        return showEmptyWindow(argc, argv);
    const QCoreApplication application(argc, argv);

    constexpr const char* emptyWindow = "an empty QMainWindow";
    const auto empty = medianOf(QCoreApplication::applicationFilePath(), {emptyOption});
    if (!empty)
        return 1;
    Milliseconds first{0};
    for (const int devices : {1, 5, 20}) {
        QStringList arguments{QStringLiteral("--no-robot")};
        for (int i = 1; i <= devices; ++i)
            arguments << QStringLiteral("--device") << QStringLiteral("Robot %1").arg(i);
        const auto opening = medianOf(QStringLiteral(WORKBENCH_FILE), arguments);
        if (!opening)
            return 1;
        const std::string what = "open: devices " + std::to_string(devices);
        print(what + ", from start to rest", opening->time, emptyWindow, empty->time,
              devices == 20 ? "1000 ms" : "");
        print(what + ", processor time", opening->processorTime, emptyWindow, empty->processorTime);
        if (devices == 1)
            first = opening->processorTime;
        else
            print(what + ", processor time of each after the first",
                  (opening->processorTime - first) / (devices - 1), "all of one device", first);
    }
    return 0;
}
