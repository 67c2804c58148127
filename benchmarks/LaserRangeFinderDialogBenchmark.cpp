// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "LaserRangeFinderDialog.h"
#include "Ratios.h"
#include "Scan.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/HistoryBundleContent.h"
#include "tests/src/FakeHost.h"

#include <QCoreApplication>
#include <QFormLayout>
#include <QLabel>

#include <array>

// The bundles are made before the time is taken, and the labels set by hand are those of a
// second tab. Two scans take turns, because a label ignores the text that it shows already.

using olm::core::LaserScanMessage;
using plugin::gui::DeviceHistoryBundle;
using plugin::gui::HistoryBundleContent;

namespace {

const int rowCount = 12;
using Texts = std::array<QString, rowCount>;

/// What differs from one scan to the next.
enum class Change
{
    Header, ///< number and time stamp: the same laser goes on
    All     ///< every text
};

LaserScanMessage nextScan(Change change)
{
    LaserScanMessage scan = exampleScan();
    scan.sequenceNumber += 1;
    scan.timeStamp += 100;
    if (change == Change::All) {
        scan.frameId = "other";
        for (float* number :
             {&scan.minimumAngle, &scan.maximumAngle, &scan.angleIncrement, &scan.timeIncrement,
              &scan.scanTime, &scan.minimumRange, &scan.maximumRange})
            *number *= 1.5F;
        scan.ranges.resize(512);
        scan.intensities.resize(512);
    }
    return scan;
}

/// As the tab formats them.
Texts textsOf(const LaserScanMessage& scan)
{
    const auto number = [](double value) { return QString::number(value, 'g', 6); };
    const auto degrees = [number](float radians) {
        return number(180.0F * static_cast<double>(radians) / 3.14159274F);
    };
    return {QString::number(scan.sequenceNumber),
            QString::number(scan.timeStamp),
            QString::fromStdString(scan.frameId),
            degrees(scan.minimumAngle),
            degrees(scan.maximumAngle),
            degrees(scan.angleIncrement),
            number(scan.timeIncrement),
            number(scan.scanTime),
            number(scan.minimumRange),
            number(scan.maximumRange),
            QString::number(scan.ranges.size()),
            QString::number(scan.intensities.size())};
}

struct Tab
{
    FakeHost host;
    LaserRangeFinderDialog dialog{host, nullptr};
    std::array<QLabel*, rowCount> labels{};
    const bool shown;

    explicit Tab(bool shown) : shown(shown)
    {
        const auto* const form = dialog.findChild<QFormLayout*>();
        for (std::size_t row = 0; row < rowCount; ++row) {
            QLayoutItem* const item = form->itemAt(static_cast<int>(row), QFormLayout::FieldRole);
            labels[row] = qobject_cast<QLabel*>(item->widget());
        }
        dialog.translate();
        if (shown)
            dialog.show();
        QCoreApplication::processEvents();
    }

    void set(const Texts& texts)
    {
        for (std::size_t row = 0; row < rowCount; ++row)
            labels[row]->setText(texts[row]);
    }

    /// What the new texts cause: layout and painting.
    void finish() const
    {
        if (shown)
            QCoreApplication::processEvents();
    }
};

void update(benchmark::State& state, Change change, bool shown)
{
    Tab tab(shown);
    std::array<HistoryBundleContent, 2> contents;
    contents[0].insert(Kind::Input, "scan", exampleScan());
    contents[1].insert(Kind::Input, "scan", nextScan(change));
    std::size_t turn = 0;
    measure(state, [&] {
        tab.dialog.update(DeviceHistoryBundle(contents[turn ^= 1]));
        tab.finish();
    });
    const Texts expected = textsOf(turn == 0 ? exampleScan() : nextScan(change));
    for (std::size_t row = 0; row < rowCount; ++row) {
        if (tab.labels[row]->text() != expected[row])
            state.SkipWithError("the tab does not show the texts that it is compared with");
    }
}

void setTexts(benchmark::State& state, Change change, bool shown)
{
    Tab tab(shown);
    const std::array<Texts, 2> texts{textsOf(exampleScan()), textsOf(nextScan(change))};
    std::size_t turn = 0;
    measure(state, [&] {
        tab.set(texts[turn ^= 1]);
        tab.finish();
    });
}

void formatAndSetTexts(benchmark::State& state, Change change, bool shown)
{
    Tab tab(shown);
    const std::array<LaserScanMessage, 2> scans{exampleScan(), nextScan(change)};
    std::size_t turn = 0;
    measure(state, [&] {
        tab.set(textsOf(scans[turn ^= 1]));
        tab.finish();
    });
}

void add(Ratios& ratios, const std::string& what, Change change, bool shown)
{
    const std::string name = "tab: " + what + ", update";
    const std::string labels = "tab: " + what + ", labels by hand";
    const std::string formatted = "tab: " + what + ", formatted by hand";
    benchmark::RegisterBenchmark(name.c_str(), update, change, shown);
    benchmark::RegisterBenchmark(labels.c_str(), setTexts, change, shown);
    benchmark::RegisterBenchmark(formatted.c_str(), formatAndSetTexts, change, shown);
    ratios.compare(name, labels, 1.1);
    ratios.compare(name, formatted, 0);
}

void updateWithoutNews(benchmark::State& state)
{
    Tab tab(false);
    plugin::gui::DeviceInterface* const widget =
        opaque(static_cast<plugin::gui::DeviceInterface*>(&tab.dialog));
    const HistoryBundleContent content;
    const DeviceHistoryBundle bundle(content);
    measure(state, [&] { widget->update(bundle); });
}

void emptyVirtualCall(benchmark::State& state)
{
    Tab tab(false);
    plugin::gui::DeviceInterface* const widget =
        opaque(static_cast<plugin::gui::DeviceInterface*>(&tab.dialog));
    measure(state, [&] { widget->connected(); });
}

} // namespace

void addLaserRangeFinderDialog(Ratios& ratios)
{
    add(ratios, "next scan", Change::Header, false);
    add(ratios, "next scan, on screen", Change::Header, true);
    add(ratios, "other scan", Change::All, false);
    add(ratios, "other scan, on screen", Change::All, true);

    benchmark::RegisterBenchmark("tab: update without news", updateWithoutNews);
    benchmark::RegisterBenchmark("tab: empty virtual call", emptyVirtualCall);
    ratios.compare("tab: update without news", "tab: empty virtual call", 0);
}
