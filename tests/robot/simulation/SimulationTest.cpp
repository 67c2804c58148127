// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Simulation.h"
#include "TestCase.h"

#include <QtTest>

#include <algorithm>
#include <cstring>

namespace simulation_test {

using namespace robot::simulation;
using std::chrono::milliseconds;

class SimulationTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_same_seed_gives_the_same_scans_however_time_is_cut();
    void time_that_fills_no_step_counts_next_time();
};

namespace {

std::vector<float> rangesOf(const std::vector<LaserScan>& scans)
{
    std::vector<float> ranges;
    for (const LaserScan& scan : scans)
        ranges.insert(ranges.end(), scan.ranges.begin(), scan.ranges.end());
    return ranges;
}

} // namespace

void SimulationTest::the_same_seed_gives_the_same_scans_however_time_is_cut()
{
    Simulation atOnce(42);
    const std::vector<LaserScan> scans = atOnce.step(std::chrono::seconds(20));

    Simulation inPieces(42);
    std::vector<LaserScan> pieces;
    for (Time rest = std::chrono::seconds(20); rest > Time(0);) {
        const Time piece = std::min<Time>(rest, milliseconds(37));
        for (LaserScan& scan : inPieces.step(piece))
            pieces.push_back(std::move(scan));
        rest -= piece;
    }

    QCOMPARE(scans.size(), size_t{200});
    QCOMPARE(pieces.size(), scans.size());
    const std::vector<float> a = rangesOf(scans);
    const std::vector<float> b = rangesOf(pieces);
    QCOMPARE(std::memcmp(a.data(), b.data(), a.size() * sizeof(float)), 0);
}

void SimulationTest::time_that_fills_no_step_counts_next_time()
{
    Simulation simulation(1);
    simulation.step(milliseconds(9));
    QCOMPARE(simulation.world().time().count(), Time(0).count());
    simulation.step(milliseconds(1));
    QCOMPARE(simulation.world().time().count(), World::timeStep.count());
}

TEST_WITHOUT_WINDOWS(SimulationTest)

} // namespace simulation_test

#include "SimulationTest.moc"
