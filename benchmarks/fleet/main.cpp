// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DelayProbe.h"
#include "Fleet.h"

#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <cstdio>
#include <optional>

#include <sys/resource.h>

namespace {

using namespace std::chrono_literals;

constexpr int laserTab = 2;

/// How the window looks meanwhile.
struct Scene
{
    const char* name;
    Fleet::Docks docks;
    bool isRepainting; // everything, 60 times a second
};

constexpr Scene scenes[] = {
    {"no docks", Fleet::Docks::None, false},
    {"all painted at 60 Hz", Fleet::Docks::None, true},
    {"with the docks", Fleet::Docks::Usual, false},
    {"all docks in sight", Fleet::Docks::All, false},
};

/// What the process used, and how late the GUI thread was, beside a thread that does nothing else.
struct Figures
{
    double processorTime = 0; // in milliseconds for each second that passed
    std::vector<double> delays;
    std::vector<double> idleDelays;
};

double processorTime()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

Figures measure(int seconds)
{
    QThread idleThread;
    idleThread.start();
    DelayProbe idleProbe(idleThread);
    DelayProbe probe(*QThread::currentThread());
    const double before = processorTime();
    QEventLoop loop; // QTest's own waiting sleeps between two looks
    QTimer::singleShot(std::chrono::seconds(seconds), &loop, &QEventLoop::quit);
    loop.exec();
    Figures figures;
    figures.processorTime = (processorTime() - before) / seconds;
    figures.delays = probe.finish();
    figures.idleDelays = idleProbe.finish();
    idleThread.quit();
    idleThread.wait();
    return figures;
}

std::optional<Figures> measure(int robots, const Scene& scene, int seconds)
{
    Fleet fleet(robots, scene.docks);
    fleet.setTab(laserTab);
    if (!fleet.connectAll())
        return std::nullopt;
    QTimer repaint;
    repaint.setTimerType(Qt::PreciseTimer);
    QObject::connect(&repaint, &QTimer::timeout, [&fleet] { fleet.repaintTabs(); });
    if (scene.isRepainting)
        repaint.start(16ms);
    return measure(seconds);
}

/// What 99 % of the delays are below, in milliseconds.
double late(const std::vector<double>& delays)
{
    return delays[static_cast<std::size_t>(0.99 * static_cast<double>(delays.size() - 1))];
}

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    const QApplication application(argc, argv);
    const std::optional<int> asked = secondsOf(application);
    if (!asked)
        return 2;
    const int seconds = *asked;

    const Figures idle = measure(seconds);
    for (const Scene& scene : scenes) {
        double one = 0;
        for (const int robots : {1, 5, 20}) {
            const std::optional<Figures> figures = measure(robots, scene, seconds);
            if (!figures)
                return 1;
            // The probe has its price: what it takes of an idle loop is not the robots'.
            const double each = (figures->processorTime - idle.processorTime) / robots;
            if (robots == 1)
                one = each;
            const std::string what = "fleet: robots " + std::to_string(robots) + ", " + scene.name;
            print(Row{what + ", processor time of each a second", figure(each, 1, "ms"),
                      "one robot", figure(one, 1, "ms"), each / one, robots == 20 ? "1" : ""});
            const double delay = late(figures->delays);
            const double idleDelay = late(figures->idleDelays);
            print(Row{what + ", 99 % of the delays below", figure(delay, 1, "ms"),
                      "a thread that does nothing else", figure(idleDelay, 1, "ms"),
                      delay / idleDelay, "20 ms"});
        }
    }
    return 0;
}
