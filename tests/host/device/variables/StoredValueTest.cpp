// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/variables/StoredValue.h"
#include "olm/core/StringList.h"
#include "olm/core/Vector.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace stored_value_test {

using host::device::variables::fromStored;
using host::device::variables::isKnownType;
using host::device::variables::toStored;
using olm::core::StringList;
using olm::core::variant::Variant;
using Floats = olm::core::Vector<float>;
using Numbers = olm::core::Vector<unsigned int>;

namespace {

/// Through the text that stands in the file.
template <class T>
T storedAndRead(const T& value, bool* ok)
{
    const auto entry = toStored(value);
    if (!entry) {
        *ok = false;
        return T();
    }
    const QByteArray file = QJsonDocument(*entry).toJson();
    const auto read = fromStored(QJsonDocument::fromJson(file).object());
    *ok = read.has_value();
    return read.value_or(Variant()).get<T>(ok);
}

quint32 bits(float value)
{
    quint32 bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

} // namespace

/// The way of a value into a device's file and back.
class StoredValueTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_form_is_readable();
    void numbers_and_flags_survive();
    void every_byte_of_a_text_survives();
    void lists_survive_in_order_and_length();
    void every_float_survives_exactly();
    void floats_that_are_no_numbers_survive();
    void numbers_are_written_alike_in_every_language();
    void a_value_of_another_type_is_not_stored();
    void a_value_that_is_not_of_its_type_is_not_read_data();
    void a_value_that_is_not_of_its_type_is_not_read();
    void an_unknown_type_is_told_from_a_known_one();
};

void StoredValueTest::the_form_is_readable()
{
    const QJsonObject entry = toStored(std::string("10.0.0.1:9090")).value();
    QCOMPARE(QJsonDocument(entry).toJson(QJsonDocument::Compact),
             QByteArray(R"({"type":"string","value":"10.0.0.1:9090"})"));
}

void StoredValueTest::numbers_and_flags_survive()
{
    bool ok = false;
    for (const bool value : {false, true}) {
        QCOMPARE(storedAndRead(value, &ok), value);
        QVERIFY(ok);
    }
    for (const int value :
         {0, -1, 1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QCOMPARE(storedAndRead(value, &ok), value);
        QVERIFY(ok);
    }
    for (const unsigned int value : {0U, 1U, std::numeric_limits<unsigned int>::max()}) {
        QCOMPARE(storedAndRead(value, &ok), value);
        QVERIFY(ok);
    }
}

void StoredValueTest::every_byte_of_a_text_survives()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    bool ok = false;
    QCOMPARE(storedAndRead(bytes, &ok), bytes);
    QVERIFY(ok);
    QCOMPARE(storedAndRead(std::string(), &ok), std::string());
    QVERIFY(ok);
}

void StoredValueTest::lists_survive_in_order_and_length()
{
    bool ok = false;
    StringList texts;
    QVERIFY(storedAndRead(texts, &ok) == texts);
    QVERIFY(ok);
    texts.append("robot");
    texts.append("");
    texts.append("10.0.0.1");
    QVERIFY(storedAndRead(texts, &ok) == texts);
    QVERIFY(ok);

    Numbers numbers;
    QVERIFY(storedAndRead(numbers, &ok) == numbers);
    QVERIFY(ok);
    numbers.append(640);
    numbers.append(std::numeric_limits<unsigned int>::max());
    QVERIFY(storedAndRead(numbers, &ok) == numbers);
    QVERIFY(ok);

    QVERIFY(storedAndRead(Floats(), &ok) == Floats());
    QVERIFY(ok);
}

void StoredValueTest::every_float_survives_exactly()
{
    using Limits = std::numeric_limits<float>;
    Floats floats;
    for (const float value :
         {0.0F, -0.0F, 0.1F, -0.1F, 1.0F, 16777216.0F, 16777217.0F, Limits::min(), Limits::max(),
          Limits::lowest(), Limits::denorm_min(), Limits::epsilon()})
        floats.append(value);
    const auto seed = std::random_device()();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    while (floats.size() < 5000) {
        const auto pattern = static_cast<quint32>(random());
        float value = 0;
        std::memcpy(&value, &pattern, sizeof value);
        if (std::isfinite(value))
            floats.append(value);
    }
    bool ok = false;
    const Floats read = storedAndRead(floats, &ok);
    QVERIFY(ok);
    QCOMPARE(read.size(), floats.size());
    for (unsigned int i = 0; i < read.size(); ++i)
        QCOMPARE(bits(read.data()[i]), bits(floats.data()[i]));
}

void StoredValueTest::floats_that_are_no_numbers_survive()
{
    using Limits = std::numeric_limits<float>;
    Floats floats;
    floats.append(Limits::quiet_NaN());
    floats.append(Limits::infinity());
    floats.append(-Limits::infinity());
    bool ok = false;
    const Floats read = storedAndRead(floats, &ok);
    QVERIFY(ok);
    QCOMPARE(read.size(), 3U);
    QVERIFY(std::isnan(read.data()[0]));
    QCOMPARE(read.data()[1], Limits::infinity());
    QCOMPARE(read.data()[2], -Limits::infinity());
}

void StoredValueTest::numbers_are_written_alike_in_every_language()
{
    Floats floats;
    floats.append(1234567.5F);
    const QByteArray expected = QJsonDocument(toStored(floats).value()).toJson();
    QVERIFY(expected.contains("1234567.5"));
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); // 1.234.567,5
    const QByteArray written = QJsonDocument(toStored(floats).value()).toJson();
    bool ok = false;
    const Floats read = storedAndRead(floats, &ok);
    QLocale::setDefault(before);
    QCOMPARE(written, expected);
    QVERIFY(ok);
    QVERIFY(read == floats);
}

void StoredValueTest::a_value_of_another_type_is_not_stored()
{
    QVERIFY(!toStored(Variant()));
    QVERIFY(!toStored(1.5));
    QVERIFY(!toStored(QString("text")));
}

void StoredValueTest::a_value_that_is_not_of_its_type_is_not_read_data()
{
    QTest::addColumn<QByteArray>("entry");
    const auto row = [](const char* entry) { QTest::newRow(entry) << QByteArray(entry); };
    row(R"({"type":"bool","value":1})");
    row(R"({"type":"int","value":"1"})");
    row(R"({"type":"int","value":1.5})");
    row(R"({"type":"int","value":2147483648})");
    row(R"({"type":"int","value":1e300})");
    row(R"({"type":"int","value":null})");
    row(R"({"type":"unsigned int","value":-1})");
    row(R"({"type":"unsigned int","value":4294967296})");
    row(R"({"type":"string","value":1})");
    row(R"({"type":"string","value":"€"})"); // not in Latin-1
    row(R"({"type":"string","value":["a"]})");
    row(R"({"type":"string list","value":"a"})");
    row(R"({"type":"string list","value":["a",1]})");
    row(R"({"type":"float vector","value":[1,"two"]})");
    row(R"({"type":"float vector","value":[1e39]})");
    row(R"({"type":"float vector","value":[null]})");
    row(R"({"type":"unsigned int vector","value":[1,-1]})");
    row(R"({"type":"unsigned int vector","value":{}})");
}

void StoredValueTest::a_value_that_is_not_of_its_type_is_not_read()
{
    QFETCH(const QByteArray, entry);
    const QJsonObject object = QJsonDocument::fromJson(entry).object();
    QVERIFY(isKnownType(object));
    QVERIFY(!fromStored(object));
}

void StoredValueTest::an_unknown_type_is_told_from_a_known_one()
{
    QVERIFY(isKnownType({{"type", "bool"}, {"value", 7}}));
    QVERIFY(!isKnownType({{"type", "quaternion"}, {"value", 7}}));
    QVERIFY(!isKnownType({{"value", 7}}));
    QVERIFY(!isKnownType({{"type", 7}, {"value", 7}}));
}

TEST_WITHOUT_WINDOWS(StoredValueTest)

} // namespace stored_value_test

#include "StoredValueTest.moc"
