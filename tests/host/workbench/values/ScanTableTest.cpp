// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/values/ScanText.h"

#include <QtTest>

#include <limits>

namespace scan_table_test {

using host::workbench::values::scanTable;
using olm::core::LaserScanMessage;

namespace {

LaserScanMessage scanOf(std::initializer_list<float> ranges,
                        std::initializer_list<float> intensities)
{
    LaserScanMessage scan;
    scan.sequenceNumber = 7;
    scan.timeStamp = 1234567;
    scan.frameId = "laser";
    scan.minimumAngle = -0.5F;
    scan.angleIncrement = 0.25F;
    for (const float range : ranges)
        scan.ranges.append(range);
    for (const float intensity : intensities)
        scan.intensities.append(intensity);
    return scan;
}

} // namespace

/// A scan as spreadsheets read it.
class ScanTableTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_measurement_is_a_line();
    void an_empty_scan_has_names_of_columns_alone();
    void a_frame_with_quotes_stays_one_cell();
};

void ScanTableTest::each_measurement_is_a_line()
{
    const LaserScanMessage scan = scanOf(
        {1.1F, std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::quiet_NaN()},
        {100});
    QCOMPARE(scanTable(scan), QByteArray("seq,stamp,frame_id,angle,range,intensity\r\n"
                                         "7,1234.567,\"laser\",-0.5,1.1,100\r\n"
                                         "7,1234.567,\"laser\",-0.25,inf,\r\n"
                                         "7,1234.567,\"laser\",0,nan,\r\n"));
}

void ScanTableTest::an_empty_scan_has_names_of_columns_alone()
{
    QCOMPARE(scanTable(scanOf({}, {1})),
             QByteArray("seq,stamp,frame_id,angle,range,intensity\r\n"));
}

void ScanTableTest::a_frame_with_quotes_stays_one_cell()
{
    LaserScanMessage scan = scanOf({2}, {});
    scan.frameId = "a\",b";
    QVERIFY(scanTable(scan).contains("7,1234.567,\"a\"\",b\",-0.5,2,\r\n"));
}

TEST_WITHOUT_WINDOWS(ScanTableTest)

} // namespace scan_table_test

#include "ScanTableTest.moc"
