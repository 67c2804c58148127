// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"

#include "robot/network/Serializer.h"
#include "robot/network/TypeDefinitions.h"
#include "rosbridge/serialization/MessageReader.h"

#include <QCborArray>
#include <QtTest>

namespace serializer_test {

using robot::network::Serializer;
using robot::network::TypeDefinitions;

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
    void types_of_others_are_written_as_ros_does();
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
}

void SerializerTest::a_message_is_its_fields_in_their_order()
{
    QFETCH(const QString, type);
    QFETCH(const QCborMap, message);
    QFETCH(QByteArray, expected);
    const TypeDefinitions definitions;
    Serializer serializer(definitions);
    QCOMPARE(serializer.serialize(type, message).toHex(' '), expected.toHex(' '));
    QCOMPARE(serializer.serialize(type, message).toHex(' '), expected.toHex(' ')); // from memory
}

void SerializerTest::types_of_others_are_written_as_ros_does()
{
    TypeDefinitions definitions;
    Serializer serializer(definitions);
    for (const ros_messages::Example& example : ros_messages::all()) {
        const auto definition = ros_messages::definition(example);
        const auto message =
            rosbridge::serialization::MessageReader::read(definition, example.bytes, nullptr);
        QVERIFY(message);
        definitions.add(definition);
        QCOMPARE(serializer.serialize(example.type, *message).toHex(), example.bytes.toHex());
    }
}

TEST_WITHOUT_WINDOWS(SerializerTest)

} // namespace serializer_test

#include "SerializerTest.moc"
