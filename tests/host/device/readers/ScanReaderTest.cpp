// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/readers/ScanReader.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QtTest>

#include <cmath>
#include <limits>

namespace scan_reader_test {

using host::device::readers::ScanReader;
using olm::core::LaserScanMessage;

namespace {

QCborMap parse(const QByteArray& json)
{
    QString error;
    const auto message =
        rosbridge::protocol::decodeText("{\"op\":\"publish\",\"msg\":" + json + "}", &error);
    return message ? message->value(QLatin1String("msg")).toMap() : QCborMap();
}

QCborMap good()
{
    return parse(R"({"header": {"seq": 7, "stamp": {"secs": 12, "nsecs": 345678901},
                                "frame_id": "laser"},
                     "angle_min": -2.5, "angle_max": 2.5, "angle_increment": 0.25,
                     "time_increment": 0.5, "scan_time": 0.125, "range_min": 0.0625,
                     "range_max": 5.5, "ranges": [1, 2.5, 0], "intensities": [3]})");
}

QCborMap with(const char* field, const QCborValue& value)
{
    QCborMap message = good();
    message.insert(QLatin1String(field), value);
    return message;
}

QCborMap withHeader(const QByteArray& json)
{
    return with("header", parse(json));
}

LaserScanMessage scanOf(const QCborMap& message)
{
    QString fault;
    const auto scan = ScanReader().read(message, &fault);
    if (!scan)
        qWarning().noquote() << fault; // fails the test
    return scan.value_or(LaserScanMessage());
}

} // namespace

/// What of a robot's scans reaches the plugin, and which are refused.
class ScanReaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_field_of_a_scan_arrives();
    void the_time_stamp_counts_milliseconds_and_wraps_data();
    void the_time_stamp_counts_milliseconds_and_wraps();
    void a_header_without_number_is_counted();
    void intensities_may_be_missing();
    void any_number_of_ranges_arrives_data();
    void any_number_of_ranges_arrives();
    void null_is_not_a_number_and_too_large_is_infinite();
    void what_is_not_finite_arrives_as_it_is();
    void a_message_of_the_wrong_shape_is_refused_with_its_field_data();
    void a_message_of_the_wrong_shape_is_refused_with_its_field();
};

void ScanReaderTest::every_field_of_a_scan_arrives()
{
    const LaserScanMessage scan = scanOf(good());
    QCOMPARE(scan.sequenceNumber, 7U);
    QCOMPARE(scan.timeStamp, 12345U);
    QCOMPARE(scan.frameId, std::string("laser"));
    QCOMPARE(scan.minimumAngle, -2.5F);
    QCOMPARE(scan.maximumAngle, 2.5F);
    QCOMPARE(scan.angleIncrement, 0.25F);
    QCOMPARE(scan.timeIncrement, 0.5F);
    QCOMPARE(scan.scanTime, 0.125F);
    QCOMPARE(scan.minimumRange, 0.0625F);
    QCOMPARE(scan.maximumRange, 5.5F);
    QCOMPARE(scan.ranges.size(), 3U);
    QCOMPARE(scan.ranges[0], 1.0F);
    QCOMPARE(scan.ranges[1], 2.5F);
    QCOMPARE(scan.ranges[2], 0.0F);
    QCOMPARE(scan.intensities.size(), 1U);
    QCOMPARE(scan.intensities[0], 3.0F);
}

void ScanReaderTest::the_time_stamp_counts_milliseconds_and_wraps_data()
{
    QTest::addColumn<QByteArray>("stamp");
    QTest::addColumn<quint32>("expected");
    QTest::newRow("ROS 1") << QByteArray(R"({"secs": 2, "nsecs": 1999999})") << 2001U;
    QTest::newRow("ROS 2") << QByteArray(R"({"sec": 2, "nanosec": 1999999})") << 2001U;
    QTest::newRow("ROS 1, last second")
        << QByteArray(R"({"secs": 4294967295, "nsecs": 999999999})") << 4294967295U;
    QTest::newRow("wraps") << QByteArray(R"({"secs": 4294968, "nsecs": 0})") << 704U;
    QTest::newRow("before the epoch") << QByteArray(R"({"sec": -1, "nanosec": 0})") << 4294966296U;
}

void ScanReaderTest::the_time_stamp_counts_milliseconds_and_wraps()
{
    QFETCH(QByteArray, stamp);
    const QCborMap message = withHeader("{\"stamp\": " + stamp + ", \"frame_id\": \"\"}");
    QTEST(scanOf(message).timeStamp, "expected");
}

void ScanReaderTest::a_header_without_number_is_counted()
{
    const QCborMap unnumbered =
        withHeader(R"({"stamp": {"sec": 0, "nanosec": 0}, "frame_id": "laser"})");
    ScanReader reader;
    QString fault;
    QCOMPARE(reader.read(unnumbered, &fault)->sequenceNumber, 1U);
    QString wrong;
    QVERIFY(!reader.read(with("ranges", QCborValue(1)), &wrong));
    QCOMPARE(reader.read(unnumbered, &fault)->sequenceNumber, 2U);
    QCOMPARE(reader.read(good(), &fault)->sequenceNumber, 7U);
    QCOMPARE(reader.read(unnumbered, &fault)->sequenceNumber, 8U);
}

void ScanReaderTest::intensities_may_be_missing()
{
    QCborMap message = good();
    message.remove(QLatin1String("intensities"));
    QVERIFY(scanOf(message).intensities.isEmpty());
}

void ScanReaderTest::any_number_of_ranges_arrives_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 683, 70000})
        QTest::addRow("%d", count) << count;
}

void ScanReaderTest::any_number_of_ranges_arrives()
{
    QFETCH(int, count);
    const QVector<float> ranges(count, 1.5F);
    QCborArray list;
    for (const float range : ranges)
        list.append(double(range));
    QCOMPARE(scanOf(with("ranges", list)).ranges.size(), unsigned(count));
    QCOMPARE(scanOf(with("ranges", rosbridge::protocol::typedArray(ranges))).ranges.size(),
             unsigned(count));
}

void ScanReaderTest::null_is_not_a_number_and_too_large_is_infinite()
{
    QCborMap message = with("ranges", QCborArray{QCborValue(nullptr), 1e300, -1e39, 3.4028235e38});
    message.insert(QLatin1String("range_max"), QCborValue(nullptr));
    const LaserScanMessage scan = scanOf(message);
    QVERIFY(std::isnan(scan.ranges[0]));
    QCOMPARE(scan.ranges[1], std::numeric_limits<float>::infinity());
    QCOMPARE(scan.ranges[2], -std::numeric_limits<float>::infinity());
    QCOMPARE(scan.ranges[3], std::numeric_limits<float>::max());
    QVERIFY(std::isnan(scan.maximumRange));
}

void ScanReaderTest::what_is_not_finite_arrives_as_it_is()
{
    const float infinity = std::numeric_limits<float>::infinity();
    const LaserScanMessage scan =
        scanOf(with("ranges", rosbridge::protocol::typedArray({NAN, infinity, -infinity})));
    QVERIFY(std::isnan(scan.ranges[0]));
    QCOMPARE(scan.ranges[1], infinity);
    QCOMPARE(scan.ranges[2], -infinity);
}

void ScanReaderTest::a_message_of_the_wrong_shape_is_refused_with_its_field_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* name, const QCborMap& message, const char* fault) {
        QTest::newRow(name) << message << QString::fromLatin1(fault);
    };
    row("nothing", {}, "\"header\" is missing");
    row("no header object", with("header", 1), "\"header\" is a number, not an object");
    row("no stamp", withHeader(R"({"frame_id": ""})"), "\"header.stamp\" is missing");
    row("no seconds", withHeader(R"({"stamp": {}, "frame_id": ""})"),
        "\"header.stamp.secs\" is missing");
    row("text for seconds", withHeader(R"({"stamp": {"secs": "1", "nsecs": 0}, "frame_id": ""})"),
        "\"header.stamp.secs\" is text, not a number");
    row("a second of nanoseconds",
        withHeader(R"({"stamp": {"secs": 1, "nsecs": 1000000000}, "frame_id": ""})"),
        "\"header.stamp.nsecs\" is 1e+09, not a whole number from 0 to 999999999");
    row("negative number",
        withHeader(R"({"seq": -1, "stamp": {"secs": 1, "nsecs": 0}, "frame_id": ""})"),
        "\"header.seq\" is -1, not a whole number from 0 to 4294967295");
    row("half a number",
        withHeader(R"({"seq": 1.5, "stamp": {"secs": 1, "nsecs": 0}, "frame_id": ""})"),
        "\"header.seq\" is 1.5, not a whole number from 0 to 4294967295");
    row("no number",
        withHeader(R"({"seq": null, "stamp": {"secs": 1, "nsecs": 0}, "frame_id": ""})"),
        "\"header.seq\" is nan, not a whole number from 0 to 4294967295");
    row("no frame", withHeader(R"({"stamp": {"secs": 1, "nsecs": 0}})"),
        "\"header.frame_id\" is missing");
    row("a number for the frame",
        withHeader(R"({"stamp": {"secs": 1, "nsecs": 0}, "frame_id": 5})"),
        "\"header.frame_id\" is a number, not text");
    for (const char* field : {"angle_min", "angle_max", "angle_increment", "time_increment",
                              "scan_time", "range_min", "range_max", "ranges"}) {
        QCborMap message = good();
        message.remove(QLatin1String(field));
        QTest::addRow("no %s", field) << message << QStringLiteral("\"%1\" is missing").arg(field);
    }
    row("text for an angle", with("angle_min", QStringLiteral("1")),
        "\"angle_min\" is text, not a number");
    row("a number for the ranges", with("ranges", 683),
        "\"ranges\" cannot be read: found a number, not an array of numbers");
    row("text among the ranges", with("ranges", QCborArray{1, QStringLiteral("2")}),
        "\"ranges\" cannot be read: element 1 is text, not a number");
    row("half a range", with("ranges", QCborValue(QCborTag(85), QByteArray(6, '\0'))),
        "\"ranges\" cannot be read: the typed array has 6 bytes");
    row("intensities that are none", with("intensities", QCborValue(nullptr)),
        "\"intensities\" cannot be read: found nothing");
}

void ScanReaderTest::a_message_of_the_wrong_shape_is_refused_with_its_field()
{
    QFETCH(QCborMap, message);
    QFETCH(QString, fault);
    QString found;
    QVERIFY(!ScanReader().read(message, &found));
    QVERIFY2(found.startsWith("the field " + fault), qPrintable(found));
}

TEST_WITHOUT_WINDOWS(ScanReaderTest)

} // namespace scan_reader_test

#include "ScanReaderTest.moc"
