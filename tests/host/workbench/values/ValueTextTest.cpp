// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/workbench/values/ValueText.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/Vector.h"

#include <QtTest>

#include <cmath>

Q_DECLARE_METATYPE(olm::core::variant::Variant)

namespace value_text_test {

using namespace host::workbench::values;
using olm::core::LaserScanMessage;
using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::Variant;

namespace {

struct Unknown
{
};

template <class T>
Vector<T> vectorOf(std::initializer_list<T> values)
{
    Vector<T> vector;
    for (const T& value : values)
        vector.append(value);
    return vector;
}

StringList listOf(std::initializer_list<std::string> texts)
{
    StringList list;
    for (const std::string& text : texts)
        list.append(text);
    return list;
}

/// The value that @p text says in the type that @p example holds; @p error is not touched then.
Variant entered(const Variant& example, const QString& text)
{
    QString error;
    const auto value = fromText(enterableType(example), text, &error);
    return value && error.isEmpty() ? *value : Variant(Unknown());
}

QString errorOf(const Variant& example, const QString& text)
{
    QString error;
    return fromText(enterableType(example), text, &error) ? QString() : error;
}

} // namespace

/// Values in words, and words as values.
class ValueTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_type_has_its_name_and_its_text_data();
    void every_type_has_its_name_and_its_text();
    void a_value_reads_back_as_itself();
    void spaces_around_numbers_are_no_matter();
    void what_is_no_value_is_an_error_that_says_what_is_right_data();
    void what_is_no_value_is_an_error_that_says_what_is_right();
    void long_values_are_cut_in_words_only();
    void a_scan_is_entered_as_the_message_it_comes_in();
    void other_types_are_shown_and_not_entered();
    void a_time_is_that_of_the_day();
};

void ValueTextTest::every_type_has_its_name_and_its_text_data()
{
    QTest::addColumn<Variant>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    QTest::newRow("empty") << Variant() << ""
                           << "empty";
    QTest::newRow("bool") << Variant(true) << "true"
                          << "true";
    QTest::newRow("int") << Variant(-5) << "-5"
                         << "-5";
    QTest::newRow("unsigned int") << Variant(4294967295U) << "4294967295"
                                  << "4294967295";
    QTest::newRow("float") << Variant(0.1F) << "0.1"
                           << "0.1";
    QTest::newRow("double") << Variant(0.1) << "0.1"
                            << "0.1";
    QTest::newRow("std::string") << Variant(std::string("a \xe4\n")) << u8"a \u00e4\n"
                                 << u8"\"a \u00e4\\n\"";
    QTest::newRow("QString") << Variant(QString(u8"\u03c0")) << u8"\u03c0" << u8"\"\u03c0\"";
    QTest::newRow("Vector<float>") << Variant(vectorOf<float>({0.1F, -2})) << "0.1, -2"
                                   << "[0.1, -2]";
    QTest::newRow("Vector<unsigned int>")
        << Variant(vectorOf<unsigned int>({640, 480})) << "640, 480"
        << "[640, 480]";
    QTest::newRow("StringList") << Variant(listOf({"a", "\"b, c\""})) << R"(["a","\"b, c\""])"
                                << R"(["a","\"b, c\""])";
}

void ValueTextTest::every_type_has_its_name_and_its_text()
{
    QFETCH(const Variant, value);
    QFETCH(const QString, text);
    QFETCH(const QString, words);
    QCOMPARE(typeName(value), QString(QTest::currentDataTag()));
    QCOMPARE(enterableTypes()[enterableType(value)], QString(QTest::currentDataTag()));
    QCOMPARE(toText(value), text);
    QCOMPARE(inWords(value), words);
    const Variant back = entered(value, text);
    QCOMPARE(typeName(back), typeName(value));
    QCOMPARE(toText(back), text);
}

void ValueTextTest::a_value_reads_back_as_itself()
{
    QVERIFY(entered(false, toText(true)).get<bool>());
    QCOMPARE(entered(0, toText(-2147483647 - 1)).get<int>(), -2147483647 - 1);
    QCOMPARE(entered(0.0, toText(0.1 + 0.2)).get<double>(), 0.1 + 0.2);
    QCOMPARE(entered(std::string(), toText(std::string("a\0\xff", 3))).get<std::string>(),
             std::string("a\0\xff", 3));
    const auto floats = vectorOf<float>({0.1F, 1e-45F, INFINITY, -0.0F});
    QVERIFY(entered(Vector<float>(), toText(floats)).get<Vector<float>>() == floats);
    QVERIFY(std::isnan(entered(Vector<float>(), "nan").get<Vector<float>>()[0]));
    QVERIFY(entered(Vector<float>(), "").get<Vector<float>>().isEmpty());
    const auto texts = listOf({"", "a,b", "\"\\", "\xe4"});
    QVERIFY(entered(StringList(), toText(texts)).get<StringList>() == texts);
}

void ValueTextTest::spaces_around_numbers_are_no_matter()
{
    QCOMPARE(entered(0, " 7 ").get<int>(), 7);
    const auto numbers = vectorOf<unsigned int>({1, 2});
    QVERIFY(entered(numbers, "1 ,2").get<Vector<unsigned int>>() == numbers);
}

void ValueTextTest::what_is_no_value_is_an_error_that_says_what_is_right_data()
{
    QTest::addColumn<Variant>("example");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error"); // a pattern
    QTest::newRow("empty") << Variant() << "a"
                           << "no text.*remove it";
    QTest::newRow("bool") << Variant(true) << "1"
                          << "\"1\".*write true or false";
    QTest::newRow("no int") << Variant(1) << "a"
                            << "\"a\".*-2147483648 to 2147483647";
    QTest::newRow("half an int") << Variant(1) << "1.5"
                                 << "\"1.5\" is not a whole number";
    QTest::newRow("too large") << Variant(1) << "2147483648"
                               << "2147483648.*to 2147483647";
    QTest::newRow("negative") << Variant(1U) << "-1"
                              << "\"-1\".*from 0 to 4294967295";
    QTest::newRow("nothing") << Variant(1U) << ""
                             << "\"\" is not a whole number";
    QTest::newRow("no number") << Variant(0.5) << "0,5"
                               << "\"0,5\".*-0\\.5";
    QTest::newRow("too large a number") << Variant(0.5) << "1e999"
                                        << "not a valid number";
    QTest::newRow("no Latin-1") << Variant(std::string()) << u8"a\u03c0"
                                << u8"Latin-1.*\u03c0.*QString";
    QTest::newRow("third") << Variant(Vector<float>()) << "1, 2, x"
                           << "Number 3.*\"x\".*commas";
    QTest::newRow("no comma") << Variant(Vector<unsigned int>()) << "1 2"
                              << "Number 1.*1 2";
    QTest::newRow("comma at the end") << Variant(Vector<float>()) << "1,"
                                      << "Number 2.*\"\"";
    QTest::newRow("no list") << Variant(StringList()) << "a, b"
                             << "\\[\"first\", \"second\"\\]";
    QTest::newRow("other list") << Variant(StringList()) << "[1]"
                                << "\\[\"first\", \"second\"\\]";
    QTest::newRow("object") << Variant(StringList()) << "{}"
                            << "\\[\"first\", \"second\"\\]";
    QTest::newRow("list no Latin-1") << Variant(StringList()) << u8"[\"\u03c0\"]" << "Latin-1";
}

void ValueTextTest::what_is_no_value_is_an_error_that_says_what_is_right()
{
    QFETCH(const Variant, example);
    QFETCH(const QString, text);
    QFETCH(const QString, error);
    const QString actual = errorOf(example, text);
    QVERIFY2(actual.contains(QRegularExpression(error)), qPrintable(actual));
}

void ValueTextTest::long_values_are_cut_in_words_only()
{
    const Variant vector(Vector<unsigned int>(1000));
    QCOMPARE(inWords(vector), QString(u8"[0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "
                                      u8"\u2026 1000 in all]"));
    QCOMPARE(int(toText(vector).count('0')), 1000);
    const Variant text(QString(1000, 'a'));
    QVERIFY(inWords(text).size() < 250);
    QCOMPARE(int(toText(text).size()), 1000);
}

void ValueTextTest::a_scan_is_entered_as_the_message_it_comes_in()
{
    LaserScanMessage scan;
    scan.sequenceNumber = 7;
    scan.timeStamp = 4294967295U;
    scan.frameId = "laser";
    scan.minimumAngle = -0.1F;
    scan.maximumRange = 5.6F;
    scan.ranges = vectorOf<float>({0.1F, 4});
    scan.intensities = vectorOf<float>({1e-45F});
    QCOMPARE(typeName(scan), QString("LaserScanMessage"));
    QCOMPARE(inWords(scan), QString("scan 7 of \"laser\", ranges: 2"));
    const QString text = toText(scan);
    QVERIFY2(text.contains("\"ranges\":[0.1,4]"), qPrintable(text));
    QVERIFY(entered(scan, text).get<LaserScanMessage>() == scan);

    scan.ranges = vectorOf<float>({NAN});
    QVERIFY(std::isnan(entered(scan, toText(scan)).get<LaserScanMessage>().ranges[0]));

    QVERIFY(errorOf(scan, "[]").contains("sensor_msgs/LaserScan"));
    QString lacking = text;
    lacking.remove("\"angle_min\":-0.1,");
    QVERIFY2(errorOf(scan, lacking).contains("angle_min"), qPrintable(errorOf(scan, lacking)));
}

void ValueTextTest::other_types_are_shown_and_not_entered()
{
    QCOMPARE(enterableType(Unknown()), -1);
    QCOMPARE(toText(Unknown()), QString());
    QCOMPARE(inWords(SimulationDirectExecRole(1005)), QString("1005"));
    QVERIFY(typeName(Unknown()).endsWith("Unknown"));
    QCOMPARE(inWords(Unknown()), typeName(Unknown()));
}

void ValueTextTest::a_time_is_that_of_the_day()
{
    const QDateTime time(QDate(2024, 2, 29), QTime(23, 5, 9, 7));
    QCOMPARE(
        inWords(std::chrono::system_clock::time_point(
            std::chrono::milliseconds(time.toMSecsSinceEpoch()) + std::chrono::microseconds(42))),
        QString("23:05:09.007042"));
}

TEST_WITHOUT_WINDOWS(ValueTextTest)

} // namespace value_text_test

#include "ValueTextTest.moc"
