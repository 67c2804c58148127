// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "robot/network/Serializer.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QtTest>

namespace serializer_test {

using robot::network::Serializer;

namespace {

QByteArray bytes(const char* hex)
{
    return QByteArray::fromHex(hex);
}

const QCborMap header{{QStringLiteral("seq"), 5},
                      {QStringLiteral("stamp"),
                       QCborMap{{QStringLiteral("secs"), 1}, {QStringLiteral("nsecs"), 258}}},
                      {QStringLiteral("frame_id"), QStringLiteral("ab")}};

constexpr const char* headerHex = "05000000 01000000 02010000 02000000 6162";

} // namespace

/// Messages in the form that ROS 1 documents: little-endian, without padding, lengths in 32 bits.
class SerializerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_message_is_its_fields_in_their_order_data();
    void a_message_is_its_fields_in_their_order();
};

void SerializerTest::a_message_is_its_fields_in_their_order_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("truth") << QString("std_msgs/Bool") << QCborMap{{QStringLiteral("data"), true}}
                           << bytes("01");
    QTest::newRow("header") << QString("std_msgs/Header") << header << bytes(headerHex);
    QTest::newRow("texts and doubles")
        << QString("sensor_msgs/JointState")
        << QCborMap{{QStringLiteral("header"), header},
                    {QStringLiteral("name"), QCborArray{QStringLiteral("a"), QStringLiteral("é")}},
                    {QStringLiteral("position"), QCborArray{1, 0.5}},
                    {QStringLiteral("velocity"), QCborArray{}},
                    {QStringLiteral("effort"), QCborArray{}}}
        << bytes(headerHex) + bytes("02000000 01000000 61 02000000 c3a9"
                                    "02000000 000000000000f03f 000000000000e03f"
                                    "00000000 00000000");
    QTest::newRow("constants and bytes")
        << QString("rosgraph_msgs/Log") << QCborMap{{QStringLiteral("header"), header},
                                                    {QStringLiteral("level"), 2},
                                                    {QStringLiteral("name"), QString("n")},
                                                    {QStringLiteral("msg"), QString("m")},
                                                    {QStringLiteral("line"), 4294967295LL},
                                                    {QStringLiteral("topics"), QCborArray{}}}
        << bytes(headerHex) +
               bytes("02 01000000 6e 01000000 6d 00000000 00000000 ffffffff 00000000");
    QTest::newRow("a byte string")
        << QString("sensor_msgs/CompressedImage")
        << QCborMap{{QStringLiteral("header"), header},
                    {QStringLiteral("format"), QString("jpeg")},
                    {QStringLiteral("data"), bytes("ff d8 00 d9")}}
        << bytes(headerHex) + bytes("04000000 6a706567 04000000 ff d8 00 d9");
    QTest::newRow("messages and small integers")
        << QString("nav_msgs/OccupancyGrid")
        << QCborMap{{QStringLiteral("header"), header},
                    {QStringLiteral("info"), QCborMap{{QStringLiteral("width"), 3},
                                                      {QStringLiteral("height"), 1},
                                                      {QStringLiteral("resolution"), 0.5}}},
                    {QStringLiteral("data"), QCborArray{-1, 0, 100}}}
        << bytes(headerHex) + bytes("00000000 00000000 0000003f 03000000 01000000") +
               QByteArray(7 * 8, '\0') + // where its corner is
               bytes("03000000 ff 00 64");
    QTest::newRow("array of a fixed length")
        << QString("geometry_msgs/PoseWithCovariance")
        << QCborMap{{QStringLiteral("covariance"), QCborArray{1}}}
        << QByteArray(7 * 8, '\0') + bytes("000000000000f03f") + QByteArray(35 * 8, '\0');
    QTest::newRow("typed array")
        << QString("sensor_msgs/LaserScan")
        << QCborMap{{QStringLiteral("header"), header},
                    {QStringLiteral("angle_min"), -1},
                    {QStringLiteral("ranges"), rosbridge::protocol::typedArray({1.5F, 0.0F})},
                    {QStringLiteral("intensities"), rosbridge::protocol::typedArray({})}}
        << bytes(headerHex) + bytes("000080bf") + bytes("00000000").repeated(6) +
               bytes("02000000 0000c03f 00000000 00000000");
}

void SerializerTest::a_message_is_its_fields_in_their_order()
{
    QFETCH(const QString, type);
    QFETCH(const QCborMap, message);
    QFETCH(QByteArray, expected);
    Serializer serializer;
    QCOMPARE(serializer.serialize(type, message).toHex(' '), expected.toHex(' '));
    QCOMPARE(serializer.serialize(type, message).toHex(' '), expected.toHex(' ')); // from memory
}

TEST_WITHOUT_WINDOWS(SerializerTest)

} // namespace serializer_test

#include "SerializerTest.moc"
