// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Clients.h"

#include "benchmarks/ProcessorTime.h"
#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"
#include "benchmarks/ServerProcess.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryFile>
#include <QTimer>

#include <cstdio>
#include <optional>

namespace {

using namespace std::chrono_literals;

/// A server that is measured.
struct Server
{
    QString address;
    qint64 process;
};

struct Figures
{
    double idleTime =
        0; // of the processor in milliseconds a second, with clients that hear nothing
    double messageTime = 0; // beyond that in microseconds for each message that came
    double rate = 0;        // of the messages to one client, in Hz
    QByteArray message;
};

void wait(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// In nanoseconds a second.
double processorTimeFor(const Server& server, std::chrono::milliseconds time)
{
    QElapsedTimer timer;
    timer.start();
    const qint64 before = processorTimeOf(server.process);
    wait(time);
    return static_cast<double>(processorTimeOf(server.process) - before) * 1e9 /
           static_cast<double>(timer.nsecsElapsed());
}

std::optional<Figures> measure(const Server& server, int clientCount, const QString& compression,
                               std::chrono::seconds time)
{
    Clients clients(server.address, clientCount);
    if (!clients.waitUntilConnected()) {
        std::fprintf(stderr, "No connection to %s.\n", qPrintable(server.address));
        return std::nullopt;
    }
    wait(500ms);
    const double idle = processorTimeFor(server, time);
    clients.subscribe(compression);
    wait(500ms);
    const int before = clients.count();
    const double busy = processorTimeFor(server, time);
    const int count = clients.count() - before;
    if (count == 0) {
        std::fprintf(stderr, "No scan comes from %s.\n", qPrintable(server.address));
        return std::nullopt;
    }
    const double perSecond = static_cast<double>(count) / static_cast<double>(time.count());
    return Figures{idle / 1e6, (busy - idle) / 1e3 / perSecond, perSecond / clientCount,
                   clients.newest()};
}

/// Sends what the robot sent, as often.
std::optional<Figures> measureBareServer(const Figures& robot, int clientCount,
                                         const QString& compression, std::chrono::seconds time)
{
    QTemporaryFile file;
    if (!file.open() || file.write(robot.message) < 0 || !file.flush())
        return std::nullopt;
    ServerProcess process(QStringLiteral(BARE_SERVER_FILE),
                          {file.fileName(),
                           compression == QLatin1String("none") ? "text" : "binary",
                           QString::number(qRound(1000 / robot.rate))});
    const QString address = process.address();
    return measure({address, process.id()}, clientCount, compression, time);
}

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption address(
        "address", "Measure the server at <host:port> in place of the robot.", "host:port");
    const QCommandLineOption process("pid", "Its process.", "number");
    parser.addOptions({address, process});
    const std::optional<int> seconds = secondsOf(application, parser);
    if (!seconds)
        return 2;
    const std::chrono::seconds time(*seconds);

    for (const char* compression : {"none", "cbor"}) {
        for (const int clients : {1, 4, 16}) {
            std::optional<ServerProcess> robot;
            Server server{parser.value(address), parser.value(process).toLongLong()};
            if (server.address.isEmpty()) {
                robot.emplace(QStringLiteral(ROBOT_FILE),
                              QStringList{"--port", "0", "--seed", "1"});
                server = {robot->address(), robot->id()};
            }
            const double alone = processorTimeFor(server, time) / 1e6;
            const auto ours = measure(server, clients, compression, time);
            robot.reset();
            const auto bare =
                ours ? measureBareServer(*ours, clients, compression, time) : std::nullopt;
            if (!bare)
                return 1;
            const std::string what = std::string("delivery: ") +
                                     (qstrcmp(compression, "none") == 0 ? "JSON" : "CBOR") + ", " +
                                     std::to_string(clients) + " connected";
            print(Row{what + ", each scan of " + std::to_string(ours->message.size()) + " bytes",
                      figure(ours->messageTime, 0, "us"), "a bare QWebSocketServer",
                      figure(bare->messageTime, 0, "us"), ours->messageTime / bare->messageTime,
                      ""});
            print(Row{what + " and hearing nothing, a second", figure(ours->idleTime, 1, "ms"),
                      "a bare QWebSocketServer", figure(bare->idleTime, 1, "ms"),
                      ours->idleTime / bare->idleTime, ""});
            if (clients > 1)
                continue;
            print(Row{"delivery: nobody connected, a second", figure(alone, 1, "ms"),
                      "with them, hearing nothing", figure(ours->idleTime, 1, "ms"),
                      alone / ours->idleTime, "4 ms"});
        }
    }
    return 0;
}
