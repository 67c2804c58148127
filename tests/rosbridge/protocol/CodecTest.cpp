// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "EncodedExamples.h"
#include "TestCase.h"

#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace codec_test {

using namespace encoded_examples;
using namespace rosbridge::protocol;

/// The codec of the link: what comes through whole, and that nothing hostile does.
class CodecTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_kind_of_value_survives_the_binary_form();
    void the_text_form_is_json_with_base64_and_plain_arrays();
    void what_json_can_say_survives_the_text_form();
    void not_a_number_and_infinity_are_null_in_the_text_form();
    void not_a_number_and_infinity_survive_the_binary_form();
    void floats_are_packed_little_endian();
    void floats_are_read_from_every_numeric_array_data();
    void floats_are_read_from_every_numeric_array();
    void floats_are_not_read_from_anything_else_data();
    void floats_are_not_read_from_anything_else();
};

void CodecTest::every_kind_of_value_survives_the_binary_form()
{
    QString error;
    const std::optional<QCborMap> message = decodeBinary(encodeBinary(everyKind()), &error);
    QVERIFY2(message, qPrintable(error));
    QVERIFY(*message == everyKind());
}

void CodecTest::the_text_form_is_json_with_base64_and_plain_arrays()
{
    const QJsonObject msg = object(encodeText(everyKind())).value("msg").toObject();
    QCOMPARE(msg.value("data").toString(), QStringLiteral("AP/+"));
    QCOMPARE(msg.value("ranges").toArray(), QJsonArray({1.5, -2.0}));
    QCOMPARE(msg.value("names").toArray(), QJsonArray({"a", 2, false}));
    QVERIFY(msg.value("nothing").isNull());
    QCOMPARE(msg.value("header").toObject().value("frame_id").toString(),
             QStringLiteral("laser \u00e9\u4e16"));
}

void CodecTest::what_json_can_say_survives_the_text_form()
{
    QCborMap message = everyKind();
    QCborMap msg = message.value(QLatin1String("msg")).toMap();
    msg.remove(QLatin1String("data"));
    msg.remove(QLatin1String("ranges"));
    message.insert(QStringLiteral("msg"), msg);

    QString error;
    const std::optional<QCborMap> again = decodeText(encodeText(message), &error);
    QVERIFY2(again, qPrintable(error));
    const QCborMap readBack = again->value(QLatin1String("msg")).toMap();
    QCOMPARE(readBack.size(), msg.size());
    for (auto field = msg.cbegin(); field != msg.cend(); ++field) {
        if (!field.value().isMap())
            QVERIFY2(readBack.value(field.key()) == field.value(),
                     qPrintable(field.key().toString()));
    }
    const QCborMap header = readBack.value(QLatin1String("header")).toMap();
    QCOMPARE(header.value(QLatin1String("stamp")).toInteger(), qint64(1234567890123));
    QCOMPARE(header.value(QLatin1String("frame_id")).toString(),
             QStringLiteral("laser \u00e9\u4e16"));
}

void CodecTest::not_a_number_and_infinity_are_null_in_the_text_form()
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const QCborMap message{{QStringLiteral("a"), notANumber},
                           {QStringLiteral("b"), infinity},
                           {QStringLiteral("c"), QCborArray{-infinity, 1}},
                           {QStringLiteral("d"), typedArray({nan, 2.0F})}};
    QCOMPARE(encodeText(message), QByteArray(R"({"a":null,"b":null,"c":[null,1],"d":[null,2]})"));
}

void CodecTest::not_a_number_and_infinity_survive_the_binary_form()
{
    const QCborMap message{{QStringLiteral("op"), QStringLiteral("x")},
                           {QStringLiteral("a"), notANumber},
                           {QStringLiteral("b"), -infinity}};
    const std::optional<QCborMap> again = decodeBinary(encodeBinary(message), nullptr);
    QVERIFY(again);
    QVERIFY(std::isnan(again->value(QLatin1String("a")).toDouble()));
    QCOMPARE(again->value(QLatin1String("b")).toDouble(), -infinity);
}

void CodecTest::floats_are_packed_little_endian()
{
    // 85 = 0xd855; 1.0 = 3f800000, -2.5 = c0200000
    QCOMPARE(typedArray({1.0F, -2.5F}).toCbor().toHex(), QByteArray("d855480000803f000020c0"));
    QCOMPARE(typedArray({}).toCbor().toHex(), QByteArray("d85540"));
}

void CodecTest::floats_are_read_from_every_numeric_array_data()
{
    QTest::addColumn<QByteArray>("cbor");
    QTest::addColumn<QVector<float>>("floats");

    const auto row = [](const char* name, const char* hex, const QVector<float>& floats) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << floats;
    };
    row("plain", "84 01 20 fb3ff8000000000000 f93e00", {1, -1, 1.5, 1.5});
    row("empty", "80", {});
    row("empty typed", "d85540", {});
    row("uint8", "d840 42 01ff", {1, 255});
    row("uint16 big", "d841 42 0102", {258});
    row("uint32 big", "d842 44 00000102", {258});
    row("uint64 big", "d843 48 0000000000000102", {258});
    row("uint8 clamped", "d844 42 01ff", {1, 255});
    row("uint16 little", "d845 42 0201", {258});
    row("uint32 little", "d846 44 02010000", {258});
    row("uint64 little", "d847 48 0201000000000000", {258});
    row("int8", "d848 42 01ff", {1, -1});
    row("int16 big", "d849 42 fffe", {-2});
    row("int32 big", "d84a 44 fffffffe", {-2});
    row("int64 big", "d84b 48 fffffffffffffffe", {-2});
    row("int16 little", "d84d 42 feff", {-2});
    row("int32 little", "d84e 44 feffffff", {-2});
    row("int64 little", "d84f 48 feffffffffffffff", {-2});
    row("float16 big", "d850 42 3e00", {1.5});
    row("float32 big", "d851 48 3fc00000 c0200000", {1.5, -2.5});
    row("float64 big", "d852 48 3ff8000000000000", {1.5});
    row("float16 little", "d854 42 003e", {1.5});
    row("float32 little", "d855 48 0000c03f 000020c0", {1.5, -2.5});
    row("float64 little", "d856 48 000000000000f83f", {1.5});

    // The largest float, the last double that is rounded to it, and the next one.
    constexpr float largest = std::numeric_limits<float>::max();
    constexpr auto infinite = static_cast<float>(infinity);
    row("out of range",
        "84 fb47efffffe0000000 fb47efffffefffffff fb47effffff0000000 fbc7effffff0000000",
        {largest, largest, infinite, -infinite});
    row("out of range typed", "d852 50 47effffff0000000 fff0000000000000", {infinite, -infinite});
}

void CodecTest::floats_are_read_from_every_numeric_array()
{
    QFETCH(QByteArray, cbor);
    QFETCH(QVector<float>, floats);

    // Through the decoder, so that it is seen to let every one of them pass.
    QString error;
    const std::optional<QCborMap> message = decodeBinary(cborWith(cbor), &error);
    QVERIFY2(message, qPrintable(error));
    const std::optional<QVector<float>> read = toFloats(message->value(QLatin1String("x")), &error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(*read, floats);
}

void CodecTest::floats_are_not_read_from_anything_else_data()
{
    QTest::addColumn<QByteArray>("cbor");
    QTest::addColumn<QString>("error");

    const auto row = [](const char* name, const char* hex, const char* error) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << error;
    };
    row("text", "6131", "found text, not an array of numbers");
    row("number", "01", "found a number, not an array of numbers");
    row("bytes", "4101", "found a byte string, not an array of numbers");
    row("object", "a0", "found an object, not an array of numbers");
    row("true", "f5", "found a truth value, not an array of numbers");
    row("null", "f6", "found nothing, not an array of numbers");
    row("text inside", "8301026133", "element 2 is text, not a number");
    row("false inside", "82f401", "element 0 is a truth value, not a number");
    row("array inside", "820180", "element 1 is an array, not a number");
    row("cut element", "d85543000000",
        "the typed array has 3 bytes, not a multiple of its element's 4");
    row("float128", "d85340", "a value with the tag 83 is not a supported array of numbers");
    row("float128 little", "d85740", "a value with the tag 87 is not a supported array of numbers");
    row("reserved", "d84c40", "a value with the tag 76 is not a supported array of numbers");
    row("other tag", "d86300", "a value with the tag 99 is not a supported array of numbers");
    row("typed array of text", "d8556131",
        "a value with the tag 85 is not a supported array of numbers");
}

void CodecTest::floats_are_not_read_from_anything_else()
{
    QFETCH(QByteArray, cbor);
    QFETCH(QString, error);

    const QCborValue value = QCborValue::fromCbor(cbor);
    QString actual;
    QVERIFY(!toFloats(value, &actual));
    QCOMPARE(actual, error);
    QVERIFY(!toFloats(value, nullptr));
}

TEST_WITHOUT_WINDOWS(CodecTest)

} // namespace codec_test

#include "CodecTest.moc"
