// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

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

using namespace rosbridge::protocol;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// One message with every kind of value that the link carries.
QCborMap everyKind()
{
    const QCborMap header{{QStringLiteral("frame_id"), QStringLiteral("laser \u00e9\u4e16")},
                          {QStringLiteral("stamp"), qint64(1234567890123)}};
    const QCborMap msg{{QStringLiteral("header"), header},
                       {QStringLiteral("ok"), true},
                       {QStringLiteral("nothing"), QCborValue(nullptr)},
                       {QStringLiteral("angle"), -0.125},
                       {QStringLiteral("names"), QCborArray{QStringLiteral("a"), 2, false}},
                       {QStringLiteral("data"), QByteArray("\x00\xff\xfe", 3)},
                       {QStringLiteral("ranges"), typedArray({1.5F, -2.0F})}};
    return {{QStringLiteral("op"), QStringLiteral("publish")},
            {QStringLiteral("topic"), QStringLiteral("/scan")},
            {QStringLiteral("msg"), msg}};
}

/// A message in CBOR whose only other field "x" has the bytes @p value.
QByteArray cborWith(const QByteArray& value)
{
    return QByteArray::fromHex("a2626f706161") + QByteArray::fromHex("6178") + value;
}

QJsonObject object(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}

} // namespace

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
    void typed_arrays_of_every_type_become_plain_arrays_in_the_text_form();
    void a_bad_text_is_refused_with_a_reason_data();
    void a_bad_text_is_refused_with_a_reason();
    void bad_binary_data_are_refused_with_a_reason_data();
    void bad_binary_data_are_refused_with_a_reason();
    void open_ended_containers_are_read();
    void nesting_is_allowed_up_to_the_limit_and_no_deeper();
    void a_message_above_the_size_limit_is_refused();
    void too_many_values_are_refused_before_memory_is_taken();
    void a_great_claimed_length_is_refused_before_memory_is_taken();
    void every_truncation_is_refused();
    void random_bytes_never_do_harm();
    void damaged_messages_never_do_harm();
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

void CodecTest::typed_arrays_of_every_type_become_plain_arrays_in_the_text_form()
{
    const auto json = [](const char* hex) {
        return encodeText({{QStringLiteral("x"), QCborValue::fromCbor(QByteArray::fromHex(hex))}});
    };
    QCOMPARE(json("d8404201ff"), QByteArray(R"({"x":[1,255]})"));
    QCOMPARE(json("d84e44feffffff"), QByteArray(R"({"x":[-2]})"));
    QCOMPARE(json("d856489a9999999999b93f"), QByteArray(R"({"x":[0.1]})"));
    QCOMPARE(json("d85340"), QByteArray(R"({"x":null})"));
}

void CodecTest::a_bad_text_is_refused_with_a_reason_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error"); // its beginning: the rest is Qt's

    const auto row = [](const QByteArray& text, const char* error) {
        QTest::newRow(text.toPercentEncoding(" {}[]\":,").constData()) << text << error;
    };
    const char* invalid = "the text is not valid JSON: ";
    row("", invalid);
    row("{", invalid);
    row("}", invalid);
    row("{\"op\":\"x\"", invalid);
    row("{\"op\":\"x\"}}", invalid);
    row("{\"op\":\"x\"} {}", invalid);
    row("{\"op\":\"x\",}", invalid);
    row("{\"op\":\"x", invalid);
    row("{\"op\":\"x\\", invalid);
    row("{\"op\":NaN}", invalid);
    row("{\"op\":\"\xff\"}", invalid);
    row("[1,2]", "the message is not a JSON object");
    row("{}", "the message has no text field \"op\"");
    row("{\"op\":1}", "the message has no text field \"op\"");
    row("{\"op\":\"x\",\"op\":\"y\"}", "the message contains a field twice");
    row("{\"op\":\"x\",\"\\u006fp\":\"y\"}", "the message contains a field twice");
    row("{\"op\":\"x\",\"a\":[{\"b\":1,\"c\":2,\"b\":1}]}", "the message contains a field twice");
    row("{\"op\":\"x\",\"a\":{\"b\":{\"c\":1}},\"a\":1}", "the message contains a field twice");
    row("{\"op\":\"x\",\"\xc3\xa9\":1,\"\xc3\xa9\":1}", "the message contains a field twice");
}

void CodecTest::a_bad_text_is_refused_with_a_reason()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);

    QString actual;
    QVERIFY(!decodeText(text, &actual));
    QVERIFY2(actual.startsWith(error), qPrintable(actual));
    QVERIFY(!decodeText(text, nullptr));

    // Colons, brackets and quotes inside text count for nothing.
    QVERIFY(decodeText(R"({"op":"a:b\":{[\\","c":":"})", &actual));
}

void CodecTest::bad_binary_data_are_refused_with_a_reason_data()
{
    QTest::addColumn<QByteArray>("cbor");
    QTest::addColumn<QString>("error");

    const auto row = [](const char* name, const QByteArray& cbor, const char* error) {
        QTest::newRow(name) << cbor << error;
    };
    const auto hex = [](const char* digits) { return QByteArray::fromHex(digits); };
    row("empty", hex(""), "the data ends too early, at byte 0");
    row("not a map", hex("8101"), "the message is an array, not an object");
    row("a number", hex("01"), "the message is a number, not an object");
    row("no op", hex("a0"), "the message has no text field \"op\"");
    row("op no text", hex("a1626f7001"), "the message has no text field \"op\"");
    row("trailing data", cborWith(hex("0100")), "data follows the message's end, at byte 9");
    row("second value", hex("a1626f706161a0"), "data follows the message's end, at byte 6");
    row("field twice", hex("a2626f706161626f706162"), "the field \"op\" occurs twice, at byte 9");
    row("inner field twice", cborWith(hex("81a2617901617901")),
        "the field \"y\" occurs twice, at byte 15");
    row("key a number", hex("a10101"), "a field's name is not text, at byte 2");
    row("key bytes", hex("a1416101"), "a field's name is not text, at byte 2");
    row("key a container", hex("a1a001"), "a field's name is not text, at byte 2");
    row("date", cborWith(hex("c100")), "the tag 1 is not that of a typed array, at byte 9");
    row("regular expression", cborWith(hex("d823612a")),
        "the tag 35 is not that of a typed array, at byte 10");
    row("greatest tag", cborWith(hex("dbffffffffffffffff00")),
        "the tag 18446744073709551615 is not that of a typed array, at byte 17");
    row("typed array of text", cborWith(hex("d8556131")),
        "a typed array is not a byte string, at byte 11");
    row("tag in tag", cborWith(hex("d855d85540")),
        "a typed array is not a byte string, at byte 11");
    row("tag at the end", cborWith(hex("d855")), "the data ends too early, at byte 10");
    row("chunked typed array", cborWith(hex("d8555f40ff")),
        "only arrays and objects may have indefinite length, at byte 11");
    row("chunked text", cborWith(hex("7f6161ff")),
        "only arrays and objects may have indefinite length, at byte 9");
    row("chunked bytes", cborWith(hex("5f4161ff")),
        "only arrays and objects may have indefinite length, at byte 9");
    row("open-ended number", cborWith(hex("1f")),
        "only arrays and objects may have indefinite length, at byte 9");
    row("lonely end", hex("ff"), "an unexpected end marker, at byte 1");
    row("end in a counted array", cborWith(hex("8201ff")), "an unexpected end marker, at byte 11");
    row("end in place of a value", hex("bf626f70ff"), "an unexpected end marker, at byte 5");
    row("undefined byte", cborWith(hex("1c")), "a byte that CBOR does not define, at byte 9");
    row("simple value", cborWith(hex("e0")), "the simple value 0 is not supported, at byte 9");
    row("long simple value", cborWith(hex("f8ff")),
        "the simple value 255 is not supported, at byte 10");
    row("cut number", cborWith(hex("1b00000000")), "the data ends too early, at byte 13");
    row("invalid UTF-8", cborWith(hex("62c328")), "the data is not valid CBOR: ");
}

void CodecTest::bad_binary_data_are_refused_with_a_reason()
{
    QFETCH(QByteArray, cbor);
    QFETCH(QString, error);

    QString actual;
    QVERIFY(!decodeBinary(cbor, &actual));
    if (error.endsWith(QLatin1String(": ")))
        QVERIFY2(actual.startsWith(error), qPrintable(actual));
    else
        QCOMPARE(actual, error);
    QVERIFY(!decodeBinary(cbor, nullptr));
}

void CodecTest::open_ended_containers_are_read()
{
    QString error;
    const std::optional<QCborMap> message =
        decodeBinary(QByteArray::fromHex("bf626f7061616178 9f01bf6179 9fffff02ff ff"), &error);
    QVERIFY2(message, qPrintable(error));
    const QCborMap inner{{QStringLiteral("y"), QCborArray()}};
    QVERIFY(message->value(QLatin1String("x")).toArray() == QCborArray({1, inner, 2}));
}

void CodecTest::nesting_is_allowed_up_to_the_limit_and_no_deeper()
{
    const auto text = [](int arrays) {
        return R"({"op":"a","x":)" + QByteArray(arrays, '[') + QByteArray(arrays, ']') + "}";
    };
    const auto binary = [](int arrays) {
        return cborWith(QByteArray(arrays - 1, '\x81') + '\x80');
    };
    const auto typed = [](int arrays) { // the innermost is a typed one
        return cborWith(QByteArray(arrays - 1, '\x81') + QByteArray::fromHex("d85540"));
    };
    const QString tooDeep = "the message nests deeper than 32 levels";

    QString error;
    QVERIFY2(decodeText(text(maximumMessageDepth - 1), &error), qPrintable(error));
    QVERIFY2(decodeBinary(binary(maximumMessageDepth - 1), &error), qPrintable(error));
    QVERIFY2(decodeBinary(typed(maximumMessageDepth - 1), &error), qPrintable(error));
    QVERIFY(!decodeBinary(typed(maximumMessageDepth), &error));
    QVERIFY2(error.startsWith(tooDeep), qPrintable(error));
    for (const int arrays : {maximumMessageDepth, 1000, 1000000}) {
        QVERIFY(!decodeText(text(arrays), &error));
        QCOMPARE(error, tooDeep);
        QVERIFY(!decodeBinary(binary(arrays), &error));
        QVERIFY2(error.startsWith(tooDeep), qPrintable(error));
        QVERIFY(!decodeText(QByteArray(arrays, '['), nullptr));
        QVERIFY(!decodeBinary(QByteArray(arrays, '\x9f'), nullptr));
    }
}

void CodecTest::a_message_above_the_size_limit_is_refused()
{
    QString error;
    QVERIFY(!decodeText(QByteArray(maximumMessageSize + 1, ' '), &error));
    QCOMPARE(error, QStringLiteral("the message has 100663297 bytes, the limit is 100663296"));
    error.clear();
    QVERIFY(!decodeBinary(QByteArray(maximumMessageSize + 1, '\0'), &error));
    QCOMPARE(error, QStringLiteral("the message has 100663297 bytes, the limit is 100663296"));
}

void CodecTest::too_many_values_are_refused_before_memory_is_taken()
{
    const QString tooMany = QStringLiteral("the message has more than 20000000 values, or 4000000 "
                                           "texts, arrays and objects");
    QString error;
    QVERIFY(!decodeText("[" + QByteArray("[],").repeated(maximumParts) + "0]", &error));
    QCOMPARE(error, tooMany);
    QVERIFY(!decodeText("[" + QByteArray("0,").repeated(maximumValues) + "0]", &error));
    QCOMPARE(error, tooMany);
    QVERIFY(!decodeBinary("\x9f" + QByteArray(maximumParts, '\x80'), &error));
    QVERIFY2(error.startsWith(tooMany), qPrintable(error));
}

void CodecTest::a_great_claimed_length_is_refused_before_memory_is_taken()
{
    QString error;
    for (const char* head : {"9b7fffffffffffffff", "9bffffffffffffffff", "bb7fffffffffffffff",
                             "bb8000000000000001", "5b7fffffffffffffff", "7b7fffffffffffffff",
                             "5affffffff", "9affffffff", "d8555bffffffffffffffff"}) {
        QVERIFY2(!decodeBinary(cborWith(QByteArray::fromHex(head) + "ay\x01"), &error), head);
        QVERIFY2(error.startsWith(QLatin1String("the data ends too early")), qPrintable(error));
    }
}

void CodecTest::every_truncation_is_refused()
{
    const QByteArray text = encodeText(everyKind());
    const QByteArray binary = encodeBinary(everyKind());
    for (int length = 0; length < text.size(); ++length)
        QVERIFY2(!decodeText(text.left(length), nullptr), qPrintable(QString::number(length)));
    for (int length = 0; length < binary.size(); ++length)
        QVERIFY2(!decodeBinary(binary.left(length), nullptr), qPrintable(QString::number(length)));
}

void CodecTest::random_bytes_never_do_harm()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int i = 0; i < 20000; ++i) {
        QByteArray bytes(random.bounded(64), Qt::Uninitialized);
        for (char& byte : bytes)
            byte = static_cast<char>(random.bounded(256));
        QString error;
        QVERIFY(decodeText(bytes, &error) || !error.isEmpty());
        error.clear();
        QVERIFY(decodeBinary(bytes, &error) || !error.isEmpty());
        const QCborValue value = QCborValue::fromCbor(bytes);
        error.clear();
        QVERIFY(toFloats(value, &error) || !error.isEmpty());
    }
}

void CodecTest::damaged_messages_never_do_harm()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QByteArray text = encodeText(everyKind());
    const QByteArray binary = encodeBinary(everyKind());
    int accepted = 0;
    for (int i = 0; i < 20000; ++i) {
        QByteArray bytes = i % 2 ? text : binary;
        for (int damage = random.bounded(1, 4); damage > 0; --damage)
            bytes[random.bounded(int(bytes.size()))] = static_cast<char>(random.bounded(256));
        QString error;
        const std::optional<QCborMap> message =
            i % 2 ? decodeText(bytes, &error) : decodeBinary(bytes, &error);
        QVERIFY(message || !error.isEmpty());
        if (!message)
            continue;
        ++accepted;
        // What is let in can be sent on, in either form, and is still a message there.
        QVERIFY2(decodeText(encodeText(*message), &error), qPrintable(error));
        QVERIFY2(decodeBinary(encodeBinary(*message), &error), qPrintable(error));
    }
    QVERIFY(accepted > 0);
}

TEST_WITHOUT_WINDOWS(CodecTest)

} // namespace codec_test

#include "CodecTest.moc"
