// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "benchmarks/ProcessorTime.h"
#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"
#include "benchmarks/fleet/Fleet.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

namespace {

constexpr int rounds = 5;

/// Of this process, in milliseconds for each second that passes.
double processorTimeFor(int seconds)
{
    QElapsedTimer timer;
    timer.start();
    const qint64 before = processorTimeOf(QCoreApplication::applicationPid());
    QEventLoop loop;
    QTimer::singleShot(std::chrono::seconds(seconds), &loop, &QEventLoop::quit);
    loop.exec();
    return static_cast<double>(processorTimeOf(QCoreApplication::applicationPid()) - before) * 1e3 /
           static_cast<double>(timer.nsecsElapsed());
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    const QApplication application(argc, argv);
    const std::optional<int> seconds = secondsOf(application);
    if (!seconds)
        return 2;
    const QTemporaryDir folder;
    Fleet fleet(1, Fleet::Docks::All);
    if (!fleet.connectAll())
        return 1;
    host::device::recording::Recorder& recorder = fleet.firstDevice().recorder();
    std::vector<double> costs;
    std::vector<double> idles;
    std::vector<double> sizes;
    for (int round = 0; round < rounds; ++round) {
        const double without = processorTimeFor(*seconds);
        QString error;
        if (!recorder.start(folder.filePath(QStringLiteral("%1.bag").arg(round)), &error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        const double with = processorTimeFor(*seconds);
        recorder.stop();
        costs.push_back(with - without);
        idles.push_back(without);
        sizes.push_back(static_cast<double>(QFileInfo(recorder.file()).size()) / *seconds);
    }
    const double cost = median(costs);
    print(Row{"recording: all that is followed, of a core", figure(cost / 10, 2, "%"),
              "all docks without a recording", figure(median(idles) / 10, 2, "%"),
              cost / median(idles), "5 %"});
    print(Row{"recording: its size", figure(median(sizes) / 1e3, 0, "kB/s"), "", "", 0, ""});
    return 0;
}
