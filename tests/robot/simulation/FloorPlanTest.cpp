// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/FloorPlan.h"
#include "TestCase.h"

#include <QtTest>

#include <algorithm>
#include <vector>

namespace floor_plan_test {

using namespace robot::simulation;

class FloorPlanTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_map_covers_the_building();
    void the_map_shows_walls_doors_and_furniture_data();
    void the_map_shows_walls_doors_and_furniture();
    void every_free_cell_can_be_reached_from_where_the_robot_starts();
};

namespace {

qint8 cellAt(const OccupancyGrid& grid, double x, double y)
{
    const auto column = static_cast<size_t>(x / grid.resolution);
    const auto row = static_cast<size_t>(y / grid.resolution);
    return grid.data.at(row * grid.width + column);
}

} // namespace

void FloorPlanTest::the_map_covers_the_building()
{
    const OccupancyGrid grid = FloorPlan::occupancyGrid(0.05);

    QCOMPARE(grid.header.frame_id, QStringLiteral("map"));
    QCOMPARE(grid.resolution, 0.05F);
    QCOMPARE(grid.width, 240U);
    QCOMPARE(grid.height, 160U);
    QCOMPARE(grid.origin.x, 0.0);
    QCOMPARE(grid.origin.y, 0.0);
    QCOMPARE(grid.data.size(), size_t{240} * 160);
    QVERIFY(std::all_of(grid.data.begin(), grid.data.end(),
                        [](qint8 cell) { return cell == 0 || cell == 100; }));
}

void FloorPlanTest::the_map_shows_walls_doors_and_furniture_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<int>("cell");
    QTest::newRow("outer corner") << 0.01 << 0.01 << 100;
    QTest::newRow("opposite outer corner") << 11.99 << 7.99 << 100;
    QTest::newRow("corridor") << 6.0 << 4.2 << 0;
    QTest::newRow("wall of the corridor") << 1.0 << 5.05 << 100;
    QTest::newRow("door in it") << 2.1 << 5.05 << 0;
    QTest::newRow("pillar") << 10.25 << 2.15 << 100;
    QTest::newRow("beside the pillar") << 10.05 << 2.15 << 0;
}

void FloorPlanTest::the_map_shows_walls_doors_and_furniture()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(int, cell);

    QCOMPARE(int{cellAt(FloorPlan::occupancyGrid(0.05), x, y)}, cell);
}

void FloorPlanTest::every_free_cell_can_be_reached_from_where_the_robot_starts()
{
    OccupancyGrid grid = FloorPlan::occupancyGrid(0.1);
    const auto start = static_cast<size_t>(FloorPlan::robotStart.y / 0.1) * grid.width +
                       static_cast<size_t>(FloorPlan::robotStart.x / 0.1);
    QCOMPARE(int{grid.data.at(start)}, 0);

    // The building is closed, so no neighbour is ever beyond the grid.
    std::vector<size_t> open{start};
    while (!open.empty()) {
        const size_t cell = open.back();
        open.pop_back();
        if (grid.data.at(cell) != 0)
            continue;
        grid.data.at(cell) = -1;
        for (const size_t next : {cell - 1, cell + 1, cell - grid.width, cell + grid.width})
            open.push_back(next);
    }

    QCOMPARE(std::count(grid.data.begin(), grid.data.end(), 0), std::ptrdiff_t{0});
}

TEST_WITHOUT_WINDOWS(FloorPlanTest)

} // namespace floor_plan_test

#include "FloorPlanTest.moc"
