// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Soak test: uses the workbench repeatedly, and checks that it holds no more after hours than after
// minutes.
#include "Census.h"
#include "Record.h"
#include "Workday.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QTextStream>

#include <cstdio>

namespace {

/// Enough for a median of each fifth, however slow the machine.
constexpr std::size_t fewestCycles = 15;
constexpr int printedLines = 60;

int s_warnings = 0;

void report(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    // The screenless platform says so of everything a window system does for a window.
    if (text.startsWith("This plugin does not support "))
        return;
    s_warnings += type == QtWarningMsg || type == QtCriticalMsg ? 1 : 0;
    QTextStream(stderr) << text << '\n';
}

bool staysLevel(double minutes)
{
    Workday workday;
    Record record;
    QElapsedTimer clock;
    clock.start();
    const auto passed = [&clock] { return static_cast<double>(clock.elapsed()) / 60000; };
    double nextLine = 0;
    while (passed() < minutes || record.size() < fewestCycles) {
        workday.cycle();
        record.add(Usage::now());
        if (passed() >= nextLine) {
            record.printLast(passed());
            nextLine += minutes / printedLines;
        }
    }
    return record.judge();
}

} // namespace

int main(int argc, char* argv[])
{
    census::begin();
    const QApplication application(argc, argv);
    qInstallMessageHandler(report); // now that Qt has said what it thinks of the machine
    QCommandLineParser parser;
    const QCommandLineOption minutesOption("minutes", "Run for NUMBER minutes.", "NUMBER", "60");
    parser.addOption(minutesOption);
    parser.addHelpOption();
    parser.process(application);
    bool isNumber = false;
    const double minutes = parser.value(minutesOption).toDouble(&isNumber);
    if (!isNumber || !(minutes > 0 && minutes <= 10000)) {
        QTextStream(stderr) << "--minutes: \"" << parser.value(minutesOption)
                            << "\" is not a number above 0, up to 10000\n";
        return 2;
    }
    const bool isLevel = staysLevel(minutes);
    if (s_warnings > 0)
        std::printf("%d warnings, see above\n", s_warnings);
    return isLevel && s_warnings == 0 ? 0 : 1;
}
