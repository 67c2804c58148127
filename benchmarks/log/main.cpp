// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"

#include "olm/qt/log/Log.h"
#include "olm/qt/log/View.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <numeric>
#include <optional>
#include <vector>

namespace {

using namespace std::chrono_literals;

constexpr int capacity = 5000; // of the log
constexpr auto interval = 10ms;
constexpr int roundCount = 4;

/// Of this thread, in milliseconds.
double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

QString nextLine()
{
    static int number = 0;
    return QStringLiteral("Line %1 of a device that tells what it does").arg(++number);
}

/// With what took days to come, at once.
void fill(QTextDocument& document)
{
    QString lines;
    for (int i = document.blockCount(); i < capacity; ++i)
        lines += '\n' + nextLine();
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(lines);
}

/// A full log on the screen.
struct Side
{
    std::function<void(const QString&)> post;
    std::vector<double> busy{}; // each time that its thread did something, in milliseconds
    int lines = 0;
};

/// A line at a time, and all that follows from it until the thread rests: layout, painting and
/// what goes for it.
void measure(Side& side, std::chrono::milliseconds time)
{
    QEventLoop loop;
    double begin = processorTime();
    const auto* const dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop,
                     [&begin] { begin = processorTime(); });
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop,
                     [&begin, &side] { side.busy.push_back(processorTime() - begin); });
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&side] {
        side.post(nextLine());
        ++side.lines;
    });
    timer.start(interval);
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

struct Figures
{
    double average; // for each line
    double late;    // 99 % are quicker
    double most;
};

Figures figuresOf(Side& side)
{
    std::sort(side.busy.begin(), side.busy.end());
    const auto share = static_cast<std::size_t>(0.99 * static_cast<double>(side.busy.size() - 1));
    return {std::accumulate(side.busy.begin(), side.busy.end(), 0.0) / side.lines, side.busy[share],
            side.busy.back()};
}

void print(const char* what, double time, double peerTime, const char* aim = "")
{
    print(Row{std::string("log: a line of a full one, ") + what, figure(time, 3, "ms"),
              "a QTextEdit with maximumBlockCount", figure(peerTime, 3, "ms"), time / peerTime,
              aim});
}

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    qputenv("QT_NO_GLIB", "1"); // whose event loop does not say when it begins to work
    const QApplication application(argc, argv);
    const std::optional<int> seconds = secondsOf(application);
    if (!seconds)
        return 2;

    olm::qt::log::Log log;
    olm::qt::log::View logView(nullptr);
    logView.setDocument(&log);
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setMaximumBlockCount(capacity);
    QTextEdit documentView;
    documentView.setReadOnly(true);
    documentView.setDocument(&document);
    Side ours{[&log](const QString& line) { log.postLog(line, 255); }};
    Side peer{[&documentView](const QString& line) { documentView.append(line); }};
    for (QTextEdit* view : {static_cast<QTextEdit*>(&logView), &documentView}) {
        view->resize(600, 300);
        view->show();
    }
    for (Side* side : {&ours, &peer})
        side->post(nextLine());
    for (QTextDocument* each : {static_cast<QTextDocument*>(&log), &document})
        fill(*each);

    const std::chrono::milliseconds time = std::chrono::seconds(*seconds);
    for (int round = 0; round < roundCount; ++round) {
        for (Side* side : {&ours, &peer})
            measure(*side, time / roundCount);
    }
    const Figures us = figuresOf(ours);
    const Figures them = figuresOf(peer);
    print("on average", us.average, them.average, "1");
    print("99 % below", us.late, them.late);
    print("longest work", us.most, them.most, "1");
    return 0;
}
