// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/protocol/Fields.h"
#include "rosbridge/serialization/MessageReader.h"

#include <QCborArray>
#include <QtTest>

#include <cmath>

namespace message_reader_test {

using ros_messages::Example;
using rosbridge::protocol::Fields;
using rosbridge::serialization::MessageDefinition;
using rosbridge::serialization::MessageReader;

namespace {

QCborMap read(const Example& example)
{
    QString error;
    const auto message =
        MessageReader::read(ros_messages::definition(example), example.bytes, &error);
    if (!message)
        qWarning("%s", qPrintable(error));
    return message.value_or(QCborMap());
}

QString errorOf(const QString& definition, const QByteArray& bytes)
{
    QString error;
    const auto parsed = MessageDefinition::parse(QStringLiteral("p/T"), definition, &error);
    if (parsed && MessageReader::read(*parsed, bytes, &error))
        return QStringLiteral("no error");
    return error;
}

} // namespace

/// MessageReader: what ROS's own code serialized, as the link carries it.
class MessageReaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_scan_is_what_the_device_reads();
    void times_numbers_and_bytes_have_the_links_shapes();
    void a_large_whole_number_stays_what_it_is();
    void every_cut_message_is_an_error();
    void bytes_too_many_are_an_error();
    void the_field_with_the_error_is_named();
    void lengths_without_bytes_take_no_memory();
    void messages_without_bytes_are_counted();
    void parts_are_bounded();
};

void MessageReaderTest::a_scan_is_what_the_device_reads()
{
    const QCborMap scan = read(ros_messages::example(ros_messages::scan()));
    QString error;
    Fields fields(scan, &error);
    QCOMPARE(fields.floatNumber("angle_min"), -1.5F);
    const QVector<float> ranges = fields.floats("ranges");
    QCOMPARE(ranges.size(), 3);
    QCOMPARE(ranges.at(0), 0.5F);
    QVERIFY(std::isnan(ranges.at(1)));
    QCOMPARE(ranges.at(2), 0.1F);
    QCOMPARE(fields.floats("intensities").size(), 0);
    Fields header = fields.object("header");
    QCOMPARE(header.text("frame_id"), QString::fromUtf8("h\xc3\xa4nd"));
    QCOMPARE(header.integer("seq", 0, 10), qint64{7});
    QCOMPARE(header.object("stamp").integer("secs", 0, 2000000000), qint64{1600000000});
    QCOMPARE(error, QString());
}

void MessageReaderTest::times_numbers_and_bytes_have_the_links_shapes()
{
    const QCborMap trajectory = read(ros_messages::example(ros_messages::trajectory()));
    QCOMPARE(trajectory.value("joint_names"), QCborValue(QCborArray{"a", ""}));
    const QCborValue point = trajectory.value("points").toArray().at(1);
    QCOMPARE(point["time_from_start"], QCborValue(QCborMap{{"secs", -2}, {"nsecs", 500}}));

    sensor_msgs::CompressedImage image;
    image.data = {0xff, 0x00};
    QCOMPARE(read(ros_messages::example(image)).value("data"), QCborValue(QByteArray("\xff\0", 2)));

    sensor_msgs::CameraInfo camera;
    camera.roi.do_rectify = 1;
    const QCborMap info = read(ros_messages::example(camera));
    QCOMPARE(info.value("roi")["do_rectify"], QCborValue(true));
    QVERIFY(info.value("K").tag() == QCborTag(86)); // little-endian doubles
    QCOMPARE(info.value("K").taggedValue().toByteArray().size(), 9 * 8);
}

void MessageReaderTest::a_large_whole_number_stays_what_it_is()
{
    const auto definition = MessageDefinition::parse("p/T", "uint64 a\nuint64 b\nint64 c", nullptr);
    const QByteArray most = QByteArray::fromHex("ffffffffffffff7f");
    const QByteArray larger = QByteArray::fromHex("ffffffffffffffff");
    const auto message = MessageReader::read(*definition, most + larger + larger, nullptr);
    QVERIFY(message);
    QCOMPARE(message->value("a"), QCborValue(std::numeric_limits<qint64>::max()));
    QCOMPARE(message->value("b"), QCborValue(0x1p64));
    QCOMPARE(message->value("c"), QCborValue(-1));
}

void MessageReaderTest::every_cut_message_is_an_error()
{
    for (const Example& example : ros_messages::all()) {
        const MessageDefinition definition = ros_messages::definition(example);
        for (int size = 0; size < example.bytes.size(); ++size)
            QVERIFY2(!MessageReader::read(definition, example.bytes.left(size), nullptr),
                     qPrintable(example.type));
    }
}

void MessageReaderTest::bytes_too_many_are_an_error()
{
    QVERIFY(errorOf("int8 x", QByteArray(3, '\0')).contains("2 bytes more"));
}

void MessageReaderTest::the_field_with_the_error_is_named()
{
    const QString error = errorOf("I[] list\n===\nMSG: p/I\nint8 a\nstring b\n",
                                  QByteArray::fromHex("02000000 01 00000000 01 05000000"));
    QVERIFY2(error.contains("\"list.1.b\""), qPrintable(error));
}

void MessageReaderTest::lengths_without_bytes_take_no_memory()
{
    const QByteArray most = QByteArray::fromHex("ffffffff");
    for (const char* type : {"float64", "uint8", "string", "time", "bool", "I"}) {
        const QString definition = QStringLiteral("%1[] x\n===\nMSG: p/I\nint8 a\n");
        const QString error = errorOf(definition.arg(QLatin1String(type)), most + "1234");
        QVERIFY2(error.contains("\"x\""), qPrintable(error));
    }
    QVERIFY(errorOf("string x", most + "1234").contains("4294967295"));
}

void MessageReaderTest::messages_without_bytes_are_counted()
{
    const QString error =
        errorOf("I[] x\n===\nMSG: p/I\nint8 C=1\n", QByteArray::fromHex("ffffffff"));
    QVERIFY2(error.contains("4294967295"), qPrintable(error));
}

void MessageReaderTest::parts_are_bounded()
{
    const int most = rosbridge::protocol::maximumParts;
    const QByteArray many = QByteArray(most + 1, '\0');
    const QString error = errorOf(QStringLiteral("bool[%1] x").arg(most + 1), many);
    QVERIFY2(error.contains("too many"), qPrintable(error));
    QCOMPARE(errorOf(QStringLiteral("uint8[%1] x").arg(most + 1), many), QString("no error"));
}

TEST_WITHOUT_WINDOWS(MessageReaderTest)

} // namespace message_reader_test

#include "MessageReaderTest.moc"
