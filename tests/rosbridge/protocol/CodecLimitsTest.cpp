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

namespace codec_limits_test {

using namespace encoded_examples;
using namespace rosbridge::protocol;

/// What the codec of the link refuses, and that nothing hostile takes memory or does harm.
class CodecLimitsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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

void CodecLimitsTest::a_bad_text_is_refused_with_a_reason_data()
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
    row(R"({"op":"x","a":[{"\ud83d":1,"\ud83e":2}]})", "the name of a field is not valid Unicode");
}

void CodecLimitsTest::a_bad_text_is_refused_with_a_reason()
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

void CodecLimitsTest::bad_binary_data_are_refused_with_a_reason_data()
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

void CodecLimitsTest::bad_binary_data_are_refused_with_a_reason()
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

void CodecLimitsTest::open_ended_containers_are_read()
{
    QString error;
    const std::optional<QCborMap> message =
        decodeBinary(QByteArray::fromHex("bf626f7061616178 9f01bf6179 9fffff02ff ff"), &error);
    QVERIFY2(message, qPrintable(error));
    const QCborMap inner{{QStringLiteral("y"), QCborArray()}};
    QVERIFY(message->value(QLatin1String("x")).toArray() == QCborArray({1, inner, 2}));
}

void CodecLimitsTest::nesting_is_allowed_up_to_the_limit_and_no_deeper()
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

void CodecLimitsTest::a_message_above_the_size_limit_is_refused()
{
    QString error;
    QVERIFY(!decodeText(QByteArray(maximumMessageSize + 1, ' '), &error));
    QCOMPARE(error, QStringLiteral("the message has 100663297 bytes, the limit is 100663296"));
    error.clear();
    QVERIFY(!decodeBinary(QByteArray(maximumMessageSize + 1, '\0'), &error));
    QCOMPARE(error, QStringLiteral("the message has 100663297 bytes, the limit is 100663296"));
    // At the limit it is read: what is wrong with this one is that it begins with a number.
    QVERIFY(!decodeBinary(QByteArray(maximumMessageSize, '\0'), &error));
    QCOMPARE(error, QStringLiteral("data follows the message's end, at byte 1"));
}

void CodecLimitsTest::too_many_values_are_refused_before_memory_is_taken()
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

void CodecLimitsTest::a_great_claimed_length_is_refused_before_memory_is_taken()
{
    QString error;
    for (const char* head : {"9b7fffffffffffffff", "9bffffffffffffffff", "bb7fffffffffffffff",
                             "bb8000000000000001", "5b7fffffffffffffff", "7b7fffffffffffffff",
                             "5affffffff", "9affffffff", "d8555bffffffffffffffff"}) {
        QVERIFY2(!decodeBinary(cborWith(QByteArray::fromHex(head) + "ay\x01"), &error), head);
        QVERIFY2(error.startsWith(QLatin1String("the data ends too early")), qPrintable(error));
    }
}

void CodecLimitsTest::every_truncation_is_refused()
{
    const QByteArray text = encodeText(everyKind());
    const QByteArray binary = encodeBinary(everyKind());
    for (int length = 0; length < text.size(); ++length)
        QVERIFY2(!decodeText(text.left(length), nullptr), qPrintable(QString::number(length)));
    for (int length = 0; length < binary.size(); ++length)
        QVERIFY2(!decodeBinary(binary.left(length), nullptr), qPrintable(QString::number(length)));
}

void CodecLimitsTest::random_bytes_never_do_harm()
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
        error.clear();
        const auto tag = static_cast<QCborTag>(random.bounded(128)); // of typed arrays, and others
        QVERIFY(toFloats(QCborValue(tag, bytes), &error) || !error.isEmpty());
    }
}

void CodecLimitsTest::damaged_messages_never_do_harm()
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

TEST_WITHOUT_WINDOWS(CodecLimitsTest)

} // namespace codec_limits_test

#include "CodecLimitsTest.moc"
