// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "PositionModel.h"
#include "QuietHost.h"
#include "Ratios.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/HistoryBundleContent.h"
#include "tests/src/Positions.h"

#include <vector>

namespace {

void cellData(benchmark::State& state)
{
    QuietHost host;
    host.setPositions(16, 16);
    Owner owner(host);
    const PositionModel model(&owner);
    const QModelIndex index = model.index(7, 5);
    measure(state, [&] { benchmark::DoNotOptimize(model.data(index)); });
}

void formatCell(benchmark::State& state)
{
    const float target = opaque(153.0F);
    const float speed = opaque(160.0F);
    measure(state, [&] {
        const QString text = QString("%1 [%2]")
                                 .arg(static_cast<double>(target), 0, 'f', 0, QLatin1Char(' '))
                                 .arg(static_cast<double>(speed), 0, 'f', 0, QLatin1Char(' '));
        benchmark::DoNotOptimize(text);
    });
}

void formatNumbers(benchmark::State& state)
{
    const float target = opaque(153.0F);
    const float speed = opaque(160.0F);
    measure(state, [&] {
        const QString first = QString::number(static_cast<double>(target), 'f', 0);
        const QString second = QString::number(static_cast<double>(speed), 'f', 0);
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
    });
}

/// A bundle that holds nothing is given to a full table. One iteration is one step of the table.
void updateWithoutNews(benchmark::State& state, int maximum)
{
    QuietHost host;
    host.setPositions(maximum, maximum);
    Owner owner(host);
    PositionModel model(&owner);
    const plugin::gui::HistoryBundleContent content;
    const plugin::gui::DeviceHistoryBundle bundle(content);
    measure(
        state, [&] { model.update(bundle); }, maximum);
}

/// What the host alone does in these steps, asked with names that are ready.
void hostsPart(benchmark::State& state, int maximum)
{
    QuietHost host;
    host.setPositions(maximum, maximum);
    const Owner owner(host);
    std::vector<std::string> names;
    for (int row = 0; row < maximum; ++row) {
        names.push_back("pos" + std::to_string(row));
        names.push_back(names.back() + "_name");
    }
    const plugin::gui::HistoryBundleContent content;
    const plugin::gui::DeviceHistoryBundle bundle(content);
    measure(
        state,
        [&] {
            for (std::size_t i = 0; i < names.size(); i += 2) {
                benchmark::DoNotOptimize(owner.readConfigVariable("num_pos_max").toInt());
                benchmark::DoNotOptimize(bundle.getConfigVariableHistory(names[i].c_str()));
                benchmark::DoNotOptimize(bundle.getConfigVariableHistory(names[i + 1].c_str()));
            }
        },
        maximum);
}

std::string stepName(int maximum)
{
    return "table: step without news, of " + std::to_string(maximum);
}

} // namespace

void addPositionModel(Ratios& ratios)
{
    benchmark::RegisterBenchmark("table: cell's data()", cellData);
    benchmark::RegisterBenchmark("table: cell's text by hand", formatCell);
    benchmark::RegisterBenchmark("table: two numbers by hand", formatNumbers);
    ratios.compare("table: cell's data()", "table: cell's text by hand", 3);
    ratios.compare("table: cell's data()", "table: two numbers by hand", 3);

    for (const int maximum : {16, 256, 4096}) {
        const std::string host = "table: host's part of it, of " + std::to_string(maximum);
        benchmark::RegisterBenchmark(stepName(maximum).c_str(), updateWithoutNews, maximum);
        benchmark::RegisterBenchmark(host.c_str(), hostsPart, maximum);
        ratios.compare(stepName(maximum), host, 0);
        if (maximum > 16)
            ratios.compare(stepName(maximum), stepName(16), 1);
    }
}
