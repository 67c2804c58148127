// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/core/variant/Variant.h"

#include "TestCase.h"
#include "VariantMetaType.h"
#include "olm/core/Vector.h"

#include <QString>
#include <QtTest>

#include <limits>

namespace variant_test {

using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::Id;
using olm::core::variant::Variant;

class VariantTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void consecutive_variants_have_consecutive_numbers();
    void a_copy_shares_value_and_number();
    void a_variant_without_a_value_is_empty();
    void get_gives_exactly_the_held_type();
    void get_of_another_type_gives_the_default_and_says_so();
    void get_of_a_vector_shares_the_storage();
    void an_any_cast_to_another_type_throws();
    void a_number_is_converted_where_it_fits_data();
    void a_number_is_converted_where_it_fits();
    void truth_is_converted_data();
    void truth_is_converted();
    void text_is_converted_data();
    void text_is_converted();
    void a_list_of_texts_is_converted();
    void conversions_may_leave_the_answer_out();
};

void VariantTest::consecutive_variants_have_consecutive_numbers()
{
    const unsigned int next = Id::g_id;
    const Variant empty;
    const Variant number(1);
    const Variant text(std::string("a"));
    QCOMPARE(empty.id(), next);
    QCOMPARE(number.id(), next + 1);
    QCOMPARE(text.id(), next + 2);
    QCOMPARE(Id::g_id, next + 3);
}

void VariantTest::a_copy_shares_value_and_number()
{
    const Variant original(std::string("a"));
    const unsigned int next = Id::g_id;
    const Variant copy(original); // NOLINT(performance-unnecessary-copy-initialization)
    Variant assigned(2);
    assigned = original;
    QCOMPARE(copy.id(), original.id());
    QCOMPARE(assigned.id(), original.id());
    QCOMPARE(&copy.any(), &original.any());
    QCOMPARE(&assigned.any(), &original.any());
    QCOMPARE(Id::g_id, next + 1); // drawn by the overwritten one alone

    const Variant empty;
    const Variant emptyCopy(empty); // NOLINT(performance-unnecessary-copy-initialization)
    QCOMPARE(emptyCopy.id(), empty.id());
    QVERIFY(emptyCopy.isEmpty());
}

void VariantTest::a_variant_without_a_value_is_empty()
{
    const Variant empty;
    QVERIFY(empty.isEmpty());
    QVERIFY(empty.any().empty());
    const Variant hollow{boost::any()}; // holds an any in an any
    QVERIFY(hollow.isEmpty() == hollow.any().empty());
    bool ok = true;
    hollow.get<int>(&ok);
    QVERIFY(!ok);
    QVERIFY(!Variant(0).isEmpty());
    QVERIFY(!Variant(std::string()).isEmpty());
    QCOMPARE(empty.any().type().name(), typeid(void).name());
}

void VariantTest::get_gives_exactly_the_held_type()
{
    bool ok = false;
    QCOMPARE(Variant(true).get<bool>(&ok), true);
    QVERIFY(ok);
    QCOMPARE(Variant(-7).get<int>(&ok), -7);
    QVERIFY(ok);
    QCOMPARE(Variant(std::string("a")).get<std::string>(&ok), std::string("a"));
    QVERIFY(ok);
    QCOMPARE(Variant(QString("b")).get<QString>(&ok), QString("b"));
    QVERIFY(ok);
    StringList list;
    list.append("c");
    QVERIFY(Variant(list).get<StringList>(&ok) == list);
    QVERIFY(ok);
    QCOMPARE(Variant(5).get<int>(), 5);
}

void VariantTest::get_of_another_type_gives_the_default_and_says_so()
{
    bool ok = true;
    QVERIFY(Variant().get<Vector<float>>(&ok).isEmpty());
    QVERIFY(!ok);
    ok = true;
    QVERIFY(Variant(Vector<unsigned int>(3)).get<Vector<float>>(&ok).isEmpty());
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(Variant(7).get<unsigned int>(&ok), 0U);
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(Variant(1).get<bool>(&ok), false);
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(Variant(QString("a")).get<std::string>(&ok), std::string());
    QVERIFY(!ok);
    QCOMPARE(Variant("text").get<int>(), 0); // and no exception without ok either
}

void VariantTest::get_of_a_vector_shares_the_storage()
{
    Vector<float> vector(2);
    vector[0] = 1.5F;
    const Variant variant(vector);
    Vector<float> first = variant.get<Vector<float>>();
    const Vector<float> second = variant.get<Vector<float>>();
    QCOMPARE(first, vector);
    QCOMPARE(static_cast<const Vector<float>&>(first).data(), second.data());
    first[0] = 9;
    QCOMPARE(second[0], 1.5F);
    QCOMPARE(variant.get<Vector<float>>(), vector);
    // Two defaults share nothing.
    QVERIFY(Variant().get<Vector<float>>() == Vector<float>());
}

void VariantTest::an_any_cast_to_another_type_throws()
{
    QCOMPARE(boost::any_cast<QString>(Variant(QString("text")).any()), QString("text"));
    for (const Variant& other : {Variant(), Variant(1), Variant(std::string("text"))}) {
        try {
            boost::any_cast<QString>(other.any());
            QFAIL("no exception");
        } catch (const boost::bad_any_cast& exception) {
            QCOMPARE(exception.what(),
                     "boost::bad_any_cast: failed conversion using boost::any_cast");
        }
    }
}

void VariantTest::a_number_is_converted_where_it_fits_data()
{
    constexpr int intMax = std::numeric_limits<int>::max();
    constexpr int intMin = std::numeric_limits<int>::min();
    constexpr unsigned int uintMax = std::numeric_limits<unsigned int>::max();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const auto text = [](const char* characters) { return Variant(std::string(characters)); };

    QTest::addColumn<Variant>("value");
    QTest::addColumn<bool>("isInt");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<bool>("isUInt");
    QTest::addColumn<uint>("asUInt");
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("nothing") << Variant() << false << 0 << false << 0U;
    row("int") << Variant(-3) << true << -3 << false << 0U;
    row("int, greatest") << Variant(intMax) << true << intMax << true << 2147483647U;
    row("int, least") << Variant(intMin) << true << intMin << false << 0U;
    row("unsigned, greatest") << Variant(uintMax) << false << 0 << true << uintMax;
    row("bool") << Variant(true) << true << 1 << true << 1U;
    row("short") << Variant(short(-4)) << true << -4 << false << 0U;
    row("unsigned char") << Variant(static_cast<unsigned char>(200)) << true << 200 << true << 200U;
    row("long long beyond int") << Variant(2147483648LL) << false << 0 << true << 2147483648U;
    row("long long beyond unsigned") << Variant(4294967296LL) << false << 0 << false << 0U;
    row("unsigned long long, greatest")
        << Variant(std::numeric_limits<unsigned long long>::max()) << false << 0 << false << 0U;
    row("double, cut") << Variant(2.9) << true << 2 << true << 2U;
    row("double, cut towards zero") << Variant(-2.9) << true << -2 << false << 0U;
    row("float") << Variant(1.5F) << true << 1 << true << 1U;
    row("double beyond int") << Variant(1e10) << false << 0 << false << 0U;
    row("double beyond all") << Variant(1e300) << false << 0 << false << 0U;
    row("not a number") << Variant(nan) << false << 0 << false << 0U;
    row("infinity") << Variant(infinity) << false << 0 << false << 0U;
    row("minus infinity") << Variant(-infinity) << false << 0 << false << 0U;
    row("text") << text("42") << true << 42 << true << 42U;
    row("negative text") << text("-1") << true << -1 << false << 0U;
    row("text beyond int") << text("2147483648") << false << 0 << true << 2147483648U;
    row("text beyond all") << text("99999999999999999999") << false << 0 << false << 0U;
    row("QString") << Variant(QString("42")) << true << 42 << true << 42U;
    for (const char* other : {"", " 42", "42 ", "4x", "x", "1.5", "0x10", "--1"})
        QTest::addRow("text '%s'", other) << text(other) << false << 0 << false << 0U;
    row("a list") << Variant(StringList()) << false << 0 << false << 0U;
    row("a vector") << Variant(Vector<float>(1)) << false << 0 << false << 0U;
}

void VariantTest::a_number_is_converted_where_it_fits()
{
    QFETCH(Variant, value);
    QFETCH(bool, isInt);
    QFETCH(int, asInt);
    QFETCH(bool, isUInt);
    QFETCH(uint, asUInt);
    bool ok = !isInt;
    QCOMPARE(value.toInt(&ok), asInt);
    QCOMPARE(ok, isInt);
    ok = !isUInt;
    QCOMPARE(value.toUInt(&ok), asUInt);
    QCOMPARE(ok, isUInt);
}

void VariantTest::truth_is_converted_data()
{
    QTest::addColumn<Variant>("value");
    QTest::addColumn<bool>("isBool");
    QTest::addColumn<bool>("asBool");
    QTest::newRow("true") << Variant(true) << true << true;
    QTest::newRow("false") << Variant(false) << true << false;
    QTest::newRow("number") << Variant(-1) << true << true;
    QTest::newRow("zero") << Variant(0) << true << false;
    QTest::newRow("fraction") << Variant(0.25) << true << true;
    QTest::newRow("zero with a point") << Variant(0.0F) << true << false;
    QTest::newRow("infinity") << Variant(std::numeric_limits<double>::infinity()) << true << true;
    QTest::newRow("not a number") << Variant(std::numeric_limits<float>::quiet_NaN()) << false
                                  << false;
    QTest::newRow("text true") << Variant(std::string("true")) << true << true;
    QTest::newRow("text false") << Variant(QString("false")) << true << false;
    QTest::newRow("text 1") << Variant(std::string("1")) << true << true;
    QTest::newRow("text 0") << Variant(std::string("0")) << true << false;
    QTest::newRow("another text") << Variant(std::string("yes")) << false << false;
    QTest::newRow("empty text") << Variant(std::string()) << false << false;
    QTest::newRow("nothing") << Variant() << false << false;
    QTest::newRow("a vector") << Variant(Vector<unsigned int>(1)) << false << false;
}

void VariantTest::truth_is_converted()
{
    QFETCH(Variant, value);
    QFETCH(bool, isBool);
    QFETCH(bool, asBool);
    bool ok = !isBool;
    QCOMPARE(value.toBool(&ok), asBool);
    QCOMPARE(ok, isBool);
}

void VariantTest::text_is_converted_data()
{
    QTest::addColumn<Variant>("value");
    QTest::addColumn<bool>("isText");
    QTest::addColumn<QByteArray>("asText");
    QTest::newRow("text") << Variant(std::string("a b")) << true << QByteArray("a b");
    QTest::newRow("text with a zero byte")
        << Variant(std::string("a\0b", 3)) << true << QByteArray("a\0b", 3);
    QTest::newRow("empty text") << Variant(std::string()) << true << QByteArray();
    QTest::newRow("QString") << Variant(QString::fromUtf8("röhre")) << true
                             << QByteArray("r\xf6hre");
    QTest::newRow("QString beyond Latin-1")
        << Variant(QString::fromUtf8("Ω")) << true << QByteArray("?");
    QTest::newRow("int") << Variant(-42) << true << QByteArray("-42");
    QTest::newRow("unsigned") << Variant(4294967295U) << true << QByteArray("4294967295");
    QTest::newRow("true") << Variant(true) << true << QByteArray("true");
    QTest::newRow("false") << Variant(false) << true << QByteArray("false");
    QTest::newRow("double") << Variant(0.1) << true << QByteArray("0.1");
    QTest::newRow("float") << Variant(0.1F) << true << QByteArray("0.1");
    QTest::newRow("whole double") << Variant(3.0) << true << QByteArray("3");
    QTest::newRow("nothing") << Variant() << false << QByteArray();
    QTest::newRow("a list") << Variant(StringList()) << false << QByteArray();
    QTest::newRow("a vector") << Variant(Vector<float>(1)) << false << QByteArray();
}

void VariantTest::text_is_converted()
{
    QFETCH(Variant, value);
    QFETCH(bool, isText);
    QFETCH(QByteArray, asText);
    bool ok = !isText;
    QCOMPARE(QByteArray::fromStdString(value.toString(&ok)), asText);
    QCOMPARE(ok, isText);
}

void VariantTest::a_list_of_texts_is_converted()
{
    StringList list;
    list.append("a");
    list.append("");
    bool ok = false;
    QVERIFY(Variant(list).toStringList(&ok) == list);
    QVERIFY(ok);
    QVERIFY(Variant(StringList()).toStringList(&ok).isEmpty());
    QVERIFY(ok);
    StringList single;
    single.append("r\xf6hre");
    QVERIFY(Variant(std::string("r\xf6hre")).toStringList(&ok) == single);
    QVERIFY(ok);
    QVERIFY(Variant(QString::fromUtf8("röhre")).toStringList(&ok) == single);
    QVERIFY(ok);
    for (const Variant& other : {Variant(), Variant(1), Variant(Vector<float>(1))}) {
        ok = true;
        QVERIFY(other.toStringList(&ok).isEmpty());
        QVERIFY(!ok);
    }
}

void VariantTest::conversions_may_leave_the_answer_out()
{
    const Variant value(42);
    QCOMPARE(value.toInt(), 42);
    QCOMPARE(value.toUInt(), 42U);
    QCOMPARE(value.toBool(), true);
    QCOMPARE(value.toString(), std::string("42"));
    QVERIFY(value.toStringList().isEmpty());
    QCOMPARE(Variant().toInt(), 0);
    QCOMPARE(Variant().toString(), std::string());
}

TEST_WITHOUT_WINDOWS(VariantTest)

} // namespace variant_test

#include "VariantTest.moc"
