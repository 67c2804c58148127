// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"

#include <QApplication>

#include <iostream>

namespace {

/// Keeps out of the table what the screenless platform says of every window.
void report(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith("This plugin does not support "))
        std::cerr << qPrintable(text) << '\n';
}

} // namespace

int main(int argc, char* argv[])
{
    qInstallMessageHandler(report);
    const QApplication application(argc, argv);
    Ratios ratios;
    addLaserScanMessage(ratios);
#ifdef HAS_ROS1
    addRos1(ratios);
#endif
#ifdef HAS_FASTCDR
    addFastCdr(ratios);
#endif
    addJson(ratios);
#ifdef HAS_RAPIDJSON
    addRapidJson(ratios);
#endif
    addDialog(ratios);
    addLaserRangeFinderDialog(ratios);
    addPositionModel(ratios);
    addPositionView(ratios);
    addWorldView(ratios);
    addLargeMessages(ratios);
    addCamera(ratios);
    addPlotView(ratios);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks(&ratios);
    return 0;
}
