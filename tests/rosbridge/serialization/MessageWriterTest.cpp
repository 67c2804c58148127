// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/serialization/MessageReader.h"
#include "rosbridge/serialization/MessageWriter.h"

#include <QCborArray>
#include <QtTest>

namespace message_writer_test {

using ros_messages::Example;
using rosbridge::serialization::MessageDefinition;
using rosbridge::serialization::MessageReader;
using rosbridge::serialization::MessageWriter;

namespace {

/// The bytes of a message of one field "x" of @p type, or why it is refused.
QByteArray written(const char* type, const QCborValue& value)
{
    QString error;
    const auto definition = MessageDefinition::parse(
        QStringLiteral("p/T"), QLatin1String(type) + QLatin1String(" x"), &error);
    if (!definition)
        return error.toUtf8();
    const auto bytes = MessageWriter::write(*definition, {{QStringLiteral("x"), value}}, &error);
    return bytes ? bytes->toHex() : error.toUtf8();
}

QCborValue typedArray(int tag, const char* hex)
{
    return {QCborTag(tag), QByteArray::fromHex(hex)};
}

} // namespace

/// MessageWriter: what the link carries, as ROS's own code serializes it.
class MessageWriterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_message_in_json_is_written_as_ros_does();
    void what_came_over_the_link_is_written_as_ros_does_data();
    void what_came_over_the_link_is_written_as_ros_does();
    void ros2_times_and_headers_are_taken();
    void numbers_are_taken_in_any_form_data();
    void numbers_are_taken_in_any_form();
    void what_does_not_fit_is_refused_data();
    void what_does_not_fit_is_refused();
    void the_field_with_the_error_is_named();
};

void MessageWriterTest::a_message_in_json_is_written_as_ros_does()
{
    const char* json =
        "{\"op\":\"publish\",\"header\":{\"seq\":7,\"stamp\":{\"secs\":1600000000,"
        "\"nsecs\":250000000},\"frame_id\":\"h\xc3\xa4nd\"},\"angle_min\":-1.5,\"angle_max\":0,"
        "\"angle_increment\":0,\"time_increment\":0.0,\"scan_time\":0,\"range_min\":0,"
        "\"range_max\":30,\"ranges\":[0.5,null,0.1],\"intensities\":[]}";
    const auto message = rosbridge::protocol::decodeText(json, nullptr);
    QVERIFY(message);
    const Example scan = ros_messages::example(ros_messages::scan());
    QString error;
    const auto bytes = MessageWriter::write(ros_messages::definition(scan), *message, &error);
    QVERIFY2(bytes, qPrintable(error));
    QCOMPARE(bytes->toHex(' '), scan.bytes.toHex(' '));
}

void MessageWriterTest::what_came_over_the_link_is_written_as_ros_does_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("definition");
    QTest::addColumn<QByteArray>("bytes");
    for (const Example& example : ros_messages::all())
        QTest::newRow(qPrintable(example.type))
            << example.type << example.definition << example.bytes;
}

void MessageWriterTest::what_came_over_the_link_is_written_as_ros_does()
{
    QFETCH(const QString, type);
    QFETCH(const QString, definition);
    QFETCH(const QByteArray, bytes);
    const MessageDefinition parsed = ros_messages::definition({type, definition, bytes});
    auto message = MessageReader::read(parsed, bytes, nullptr);
    QVERIFY(message);
    message->insert(QLatin1String("op"), QLatin1String("publish"));
    QString error;
    for (const auto& arrived :
         {rosbridge::protocol::decodeText(rosbridge::protocol::encodeText(*message), &error),
          rosbridge::protocol::decodeBinary(rosbridge::protocol::encodeBinary(*message), &error)}) {
        QVERIFY2(arrived, qPrintable(error));
        const auto again = MessageWriter::write(parsed, *arrived, &error);
        // In JSON, the largest of 64 bits is no whole number any more.
        if (!again && type == QLatin1String("std_msgs/UInt64MultiArray"))
            continue;
        QVERIFY2(again, qPrintable(error));
        QCOMPARE(again->toHex(' '), bytes.toHex(' '));
    }
}

void MessageWriterTest::ros2_times_and_headers_are_taken()
{
    const std_msgs::Header header = [] {
        std_msgs::Header header = ros_messages::header();
        header.seq = 0;
        return header;
    }();
    const Example example = ros_messages::example(header);
    const QCborMap ros2{{"stamp", QCborMap{{"sec", 1600000000}, {"nanosec", 250000000}}},
                        {"frame_id", QString::fromUtf8("h\xc3\xa4nd")}};
    QString error;
    const auto bytes = MessageWriter::write(ros_messages::definition(example), ros2, &error);
    QVERIFY2(bytes, qPrintable(error));
    QCOMPARE(*bytes, example.bytes);
}

void MessageWriterTest::numbers_are_taken_in_any_form_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QCborValue>("value");
    QTest::addColumn<QByteArray>("hex");
    QTest::newRow("whole as a double") << "int16" << QCborValue(-2.0) << QByteArray("feff");
    QTest::newRow("double as a whole")
        << "float64" << QCborValue(1) << QByteArray("000000000000f03f");
    QTest::newRow("NaN") << "float32" << QCborValue(nullptr) << QByteArray("0000c07f");
    QTest::newRow("beyond a float") << "float32" << QCborValue(1e300) << QByteArray("0000807f");
    QTest::newRow("uint64") << "uint64" << QCborValue(0x1p63) << QByteArray("0000000000000080");
    QTest::newRow("int64") << "int64" << QCborValue(std::numeric_limits<qint64>::max())
                           << QByteArray("ffffffffffffff7f");
    QTest::newRow("base64") << "uint8[]" << QCborValue(QStringLiteral("/wA="))
                            << QByteArray("02000000ff00");
    QTest::newRow("bytes") << "uint8[2]" << QCborValue(QByteArray("ab")) << QByteArray("6162");
    QTest::newRow("bytes as numbers")
        << "uint8[]" << QCborValue(QCborArray{1, 255}) << QByteArray("0200000001ff");
    QTest::newRow("typed array") << "int8[]" << typedArray(72, "ff01")
                                 << QByteArray("02000000ff01");
    QTest::newRow("typed array of others")
        << "float32[]" << typedArray(72, "ff01") << QByteArray("02000000000080bf0000803f");
    QTest::newRow("big-endian") << "uint16[1]" << typedArray(65, "0102") << QByteArray("0201");
}

void MessageWriterTest::numbers_are_taken_in_any_form()
{
    QFETCH(const QString, type);
    QFETCH(const QCborValue, value);
    QFETCH(const QByteArray, hex);
    QCOMPARE(written(qPrintable(type), value), hex);
}

void MessageWriterTest::what_does_not_fit_is_refused_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QCborValue>("value");
    const auto add = [](const char* name, const char* type, const QCborValue& value) {
        QTest::newRow(name) << QString::fromLatin1(type) << value;
    };
    add("missing", "int8", QCborValue());
    add("too large", "uint8", 256);
    add("too small", "uint32", -1);
    add("beyond 64 bits", "int64", 0x1p63);
    add("beyond 64 bits without a sign", "uint64", 0x1p64);
    add("no whole number", "int32", 0.5);
    add("no number at all", "int32", nullptr);
    add("text for a number", "float64", QStringLiteral("1"));
    add("a number for the truth", "bool", 1);
    add("a number for text", "string", 1);
    add("a number for a time", "time", 1);
    add("half a time", "time", QCborMap{{"secs", 1}});
    add("a time before 1970", "time", QCborMap{{"secs", -1}, {"nsecs", 0}});
    add("no array", "float32[]", 1);
    add("too few", "float32[3]", QCborArray{1, 2});
    add("too many bytes", "uint8[1]", QByteArray("ab"));
    add("no base64", "uint8[]", QStringLiteral("?"));
    add("a cut typed array", "float32[]", typedArray(85, "010203"));
    add("numbers for texts", "string[]", typedArray(64, "0102"));
    add("a typed array that does not fit", "uint8[]", typedArray(77, "ffff"));
}

void MessageWriterTest::what_does_not_fit_is_refused()
{
    QFETCH(const QString, type);
    QFETCH(const QCborValue, value);
    const QByteArray result = written(qPrintable(type), value);
    QVERIFY2(result.contains("\"x") && !result.startsWith("the definition"), result.constData());
}

void MessageWriterTest::the_field_with_the_error_is_named()
{
    const MessageDefinition definition =
        ros_messages::definition(ros_messages::example(ros_messages::transforms()));
    const QCborMap stamp{{"secs", 0}, {"nsecs", 0}};
    const QCborMap header{{"seq", 0}, {"stamp", stamp}, {"frame_id", ""}};
    const QCborMap transform{{"header", header}, {"child_frame_id", 5}};
    QString error;
    QVERIFY(!MessageWriter::write(definition, {{"transforms", QCborArray{transform}}}, &error));
    QVERIFY2(error.contains("\"transforms.0.child_frame_id\""), qPrintable(error));
    QVERIFY(!MessageWriter::write(definition, {{"transforms", QCborArray{stamp}}}, &error));
    QVERIFY2(error.contains("\"transforms.0.header\" is missing"), qPrintable(error));
    QVERIFY(!MessageWriter::write(definition, {{"transforms", QCborArray{1}}}, &error));
    QVERIFY2(error.contains("\"transforms.0\" is a number"), qPrintable(error));
}

TEST_WITHOUT_WINDOWS(MessageWriterTest)

} // namespace message_writer_test

#include "MessageWriterTest.moc"
