// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/protocol/JsonWriter.h"

#include <QCborArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>

namespace json_writer_test {

using rosbridge::protocol::JsonWriter;
using rosbridge::protocol::toFloats;
using rosbridge::protocol::typedArray;

namespace {

QByteArray written(const QCborValue& value)
{
    JsonWriter writer;
    writer.write(value);
    return writer.text();
}

/// What Qt's own reader makes of a JSON value; undefined, and a warning, if it refuses it.
QCborValue readByQt(const QByteArray& json)
{
    QJsonParseError fault;
    const QJsonDocument document = QJsonDocument::fromJson('[' + json + ']', &fault);
    if (fault.error != QJsonParseError::NoError)
        qWarning("%s: %s", json.constData(), qPrintable(fault.errorString()));
    return QCborArray::fromJsonArray(document.array()).at(0);
}

/// Whether @p json is all of @p value that JSON can say, a number to its last bit.
bool isSaid(const QCborValue& value, const QCborValue& json)
{
    if (value.isByteArray())
        return json.toString() == QString::fromLatin1(value.toByteArray().toBase64());
    if (value.isInteger())
        return json.isInteger() && json.toInteger() == value.toInteger();
    if (value.isDouble())
        return std::isfinite(value.toDouble()) ? json.toDouble() == value.toDouble()
                                               : json.isNull();
    if (value.isArray()) {
        const QCborArray array = value.toArray();
        const QCborArray read = json.toArray();
        return json.isArray() && read.size() == array.size() &&
               std::equal(array.cbegin(), array.cend(), read.cbegin(), isSaid);
    }
    if (value.isMap()) {
        const QCborMap map = value.toMap();
        const QCborMap read = json.toMap();
        return json.isMap() && read.size() == map.size() &&
               std::all_of(map.cbegin(), map.cend(), [&read](const auto& field) {
                   return isSaid(field.second, read.value(field.first.toString()));
               });
    }
    return value == json;
}

template <typename Number, typename Bits>
Number ofBits(Bits bits)
{
    static_assert(sizeof(Number) == sizeof(Bits));
    Number number;
    std::memcpy(&number, &bits, sizeof(bits));
    return number;
}

/// Values of every kind, to be the same for the same seed.
class AnyValue
{
public:
    explicit AnyValue(quint32 seed) : m_random(seed) {}

    QCborValue value(int depth)
    {
        switch (m_random.bounded(depth > 0 ? 9 : 7)) {
        case 0:
            return m_random.bounded(2) == 1;
        case 1:
            return nullptr;
        case 2:
            return static_cast<qint64>(m_random.generate64() >> m_random.bounded(64));
        case 3:
            return -static_cast<qint64>(m_random.generate64() >> m_random.bounded(1, 64));
        case 4:
            return ofBits<double>(m_random.generate64());
        case 5:
            return text();
        case 6:
            return text().toUtf8(); // as bytes
        case 7:
            return array(depth);
        default:
            return map(depth);
        }
    }

    /// Of any characters, those that need an escape or two units of UTF-16 above all.
    QString text()
    {
        QString text;
        for (int i = m_random.bounded(12); i > 0; --i) {
            switch (m_random.bounded(4)) {
            case 0:
                text += QChar(m_random.bounded(0x80));
                break;
            case 1:
                text += QChar(m_random.bounded(0xd800));
                break;
            case 2:
                text += QLatin1String("\"\\/\b\f\n\r\t").at(m_random.bounded(8));
                break;
            default: {
                const uint character = m_random.bounded(0x10000, 0x110000);
                text += QChar(QChar::highSurrogate(character));
                text += QChar(QChar::lowSurrogate(character));
            }
            }
        }
        return text;
    }

    QVector<float> floats(int count)
    {
        QVector<float> floats;
        for (int i = 0; i < count; ++i)
            floats.append(ofBits<float>(m_random.generate()));
        return floats;
    }

private:
    QCborArray array(int depth)
    {
        QCborArray array;
        for (int i = m_random.bounded(5); i > 0; --i)
            array.append(value(depth - 1));
        return array;
    }

    QCborMap map(int depth)
    {
        QCborMap map;
        for (int i = m_random.bounded(5); i > 0; --i)
            map.insert(text(), value(depth - 1));
        return map;
    }

    QRandomGenerator m_random;
};

} // namespace

/// JsonWriter: what it writes, and that Qt's own reader reads the same.
class JsonWriterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void values_are_written_without_spaces_and_in_their_order();
    void a_text_is_escaped_where_it_must_be_data();
    void a_text_is_escaped_where_it_must_be();
    void a_number_is_written_with_the_fewest_digits_data();
    void a_number_is_written_with_the_fewest_digits();
    void typed_arrays_of_every_type_become_plain_arrays_data();
    void typed_arrays_of_every_type_become_plain_arrays();
    void any_value_is_read_as_the_same();
    void any_float_is_read_as_the_same_from_few_digits();
};

void JsonWriterTest::values_are_written_without_spaces_and_in_their_order()
{
    const QCborMap map{{QStringLiteral("z"), QCborArray{true, false, nullptr}},
                       {QStringLiteral("a"), QCborMap{{QStringLiteral("b"), QByteArray("\xff")}}},
                       {QStringLiteral("none"), QCborArray{QCborArray(), QCborMap(), QString()}},
                       {QStringLiteral("undefined"), QCborValue()}};
    QCOMPARE(written(map),
             QByteArray(
                 R"({"z":[true,false,null],"a":{"b":"/w=="},"none":[[],{},""],"undefined":null})"));
}

void JsonWriterTest::a_text_is_escaped_where_it_must_be_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("json");

    QTest::newRow("empty") << "" << QByteArray(R"("")");
    QTest::newRow("quote") << "say \"a\"" << QByteArray(R"("say \"a\"")");
    QTest::newRow("backslash") << "\\\\a\\" << QByteArray(R"("\\\\a\\")");
    QTest::newRow("lines") << "a\tb\r\nc" << QByteArray(R"("a\u0009b\u000d\u000ac")");
    QTest::newRow("null") << QString(QChar(0)) << QByteArray(R"("\u0000")");
    QTest::newRow("last control character") << "\x1f " << QByteArray(R"("\u001f ")");
    QTest::newRow("delete") << "\x7f" << QByteArray("\"\x7f\"");
    QTest::newRow("line separator") << QString(QChar(0x2028)) << QByteArray("\"\xe2\x80\xa8\"");
    QTest::newRow("two units") << QString::fromUtf8("\xf0\x9f\xa4\x96")
                               << QByteArray("\"\xf0\x9f\xa4\x96\"");
    QTest::newRow("half a pair") << QString(QChar(0xd83e)) << QByteArray(R"("\ud83e")");
    QTest::newRow("half a pair after \"a\"")
        << QString("\"a\"") + QChar(0xdd16) << QByteArray(R"("\u0022\u0061\u0022\udd16")");
}

void JsonWriterTest::a_text_is_escaped_where_it_must_be()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, json);

    QCOMPARE(written(text), json);
    QCOMPARE(readByQt(json).toString(), text);
    QCOMPARE(written(QCborMap{{text, 1}}), '{' + json + ":1}");
}

void JsonWriterTest::a_number_is_written_with_the_fewest_digits_data()
{
    QTest::addColumn<QCborValue>("number");
    QTest::addColumn<QByteArray>("json");

    const auto row = [](const QCborValue& number, const QByteArray& json) {
        QTest::newRow(json.constData()) << number << json;
    };
    using Double = std::numeric_limits<double>;
    using Float = std::numeric_limits<float>;
    using Integer = std::numeric_limits<qint64>;
    row(0, "0");
    row(100000, "100000");
    row((qint64(1) << 53) + 1, "9007199254740993");
    row(Integer::max(), "9223372036854775807");
    row(Integer::min(), "-9223372036854775808");
    row(0.1, "0.1");
    row(-2.0, "-2");
    row(-0.0, "-0");
    row(1.0 / 3.0, "0.3333333333333333");
    row(1e300, "1e+300");
    row(Double::denorm_min(), "5e-324");
    row(Double::min(), "2.2250738585072014e-308");
    row(Double::max(), "1.7976931348623157e+308");
    row(Double::quiet_NaN(), "null");
    row(-Double::infinity(), "null");
    row(typedArray({0.1F, -0.0F, 16777216.0F}), "[0.1,-0,16777216]");
    row(typedArray({Float::denorm_min(), Float::min(), Float::max()}),
        "[1e-45,1.1754944e-38,3.4028235e+38]");
    row(typedArray({Float::quiet_NaN(), Float::infinity()}), "[null,null]");
}

void JsonWriterTest::a_number_is_written_with_the_fewest_digits()
{
    QFETCH(QCborValue, number);
    QFETCH(QByteArray, json);

    QCOMPARE(written(number), json);
    if (!number.isTag())
        QVERIFY(isSaid(number, readByQt(json)));
}

void JsonWriterTest::typed_arrays_of_every_type_become_plain_arrays_data()
{
    QTest::addColumn<QByteArray>("cbor");
    QTest::addColumn<QByteArray>("json");

    const auto row = [](const char* name, const char* hex, const char* json) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << QByteArray(json);
    };
    row("empty", "d85540", "[]");
    row("uint8", "d840 43 0a64ff", "[10,100,255]");
    row("uint8 clamped", "d844 41 ff", "[255]");
    row("uint16 big", "d841 44 0102 ffff", "[258,65535]");
    row("uint16 little", "d845 42 0201", "[258]");
    row("uint32 big", "d842 44 ffffffff", "[4294967295]");
    row("uint32 little", "d846 44 02010000", "[258]");
    row("uint64 big", "d843 48 ffffffffffffffff", "[18446744073709551615]");
    row("uint64 little", "d847 48 0100000000002000", "[9007199254740993]");
    row("int8", "d848 42 80ff", "[-128,-1]");
    row("int16 big", "d849 42 fffe", "[-2]");
    row("int16 little", "d84d 42 feff", "[-2]");
    row("int32 big", "d84a 44 80000000", "[-2147483648]");
    row("int32 little", "d84e 44 feffffff", "[-2]");
    row("int64 big", "d84b 48 8000000000000000", "[-9223372036854775808]");
    row("int64 little", "d84f 48 feffffffffffffff", "[-2]");
    row("float16 big", "d850 44 3e00 7e00", "[1.5,null]");
    row("float16 little", "d854 42 003e", "[1.5]");
    row("float32 big", "d851 48 3dcccccd 7f800000", "[0.1,null]");
    row("float32 little", "d855 44 cdcccc3d", "[0.1]");
    row("float64 big", "d852 48 3fb999999999999a", "[0.1]");
    row("float64 little", "d856 48 9a9999999999b93f", "[0.1]");
    row("float128", "d85340", "null");
    row("cut", "d85543000000", "null");
    row("reserved", "d84c40", "null");
    row("other tag", "d86300", "null");
}

void JsonWriterTest::typed_arrays_of_every_type_become_plain_arrays()
{
    QFETCH(QByteArray, cbor);

    QTEST(written(QCborValue::fromCbor(cbor)), "json");
}

void JsonWriterTest::any_value_is_read_as_the_same()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    AnyValue any(seed);
    for (int i = 0; i < 20000; ++i) {
        const QCborValue value = any.value(4);
        const QByteArray json = written(value);
        QVERIFY2(isSaid(value, readByQt(json)), json.constData());
    }
}

void JsonWriterTest::any_float_is_read_as_the_same_from_few_digits()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    const QVector<float> floats = AnyValue(seed).floats(20000);
    const QByteArray json = written(typedArray(floats));
    const std::optional<QVector<float>> read = toFloats(readByQt(json), nullptr);
    QVERIFY(read && read->size() == floats.size());
    const QList<QByteArray> texts = json.mid(1, json.size() - 2).split(',');
    for (int i = 0; i < floats.size(); ++i) {
        const float number = floats.at(i);
        constexpr int enough = std::numeric_limits<float>::max_digits10;
        if (std::isfinite(number)) {
            QCOMPARE(ofBits<quint32>(read->at(i)), ofBits<quint32>(number));
            QVERIFY(texts.at(i).size() <=
                    QByteArray::number(static_cast<double>(number), 'g', enough).size());
        } else {
            QVERIFY(std::isnan(read->at(i)));
        }
    }
}

TEST_WITHOUT_WINDOWS(JsonWriterTest)

} // namespace json_writer_test

#include "JsonWriterTest.moc"
