// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/workbench/robotview/RobotMessages.h"

#include "host/workbench/plots/Numbers.h"
#include "olm/core/Vector.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QtTest>

#include <cmath>

namespace numbers_test {

using namespace host::workbench::plots;
using olm::core::Vector;
using olm::core::variant::Variant;

namespace {

QCborArray ones(int count)
{
    QCborArray array;
    for (int i = 0; i < count; ++i)
        array.append(1);
    return array;
}

} // namespace

/// Which numbers there are in messages and variables, and what they are.
class NumbersTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_messages_numbers_are_found_wherever_they_are();
    void each_path_leads_to_its_number_data();
    void each_path_leads_to_its_number();
    void what_is_no_path_leads_to_no_number_data();
    void what_is_no_path_leads_to_no_number();
    void long_arrays_are_left_out();
    void no_message_has_too_many();
    void typed_arrays_are_arrays_too();
    void variables_have_numbers_as_well();
};

void NumbersTest::a_messages_numbers_are_found_wherever_they_are()
{
    const QCborMap message{
        {"header", QCborMap{{"stamp", QCborMap{{"secs", 1}}}, {"frame_id", "x"}}},
        {"on", true},
        {"none", QCborValue(nullptr)},
        {"list", QCborArray{1.5, "text", QCborMap{{"x", 2}}}},
        {"text", "7"}};
    QCOMPARE(numbersIn(message),
             (QStringList{"header.stamp.secs", "on", "none", "list[0]", "list[2].x"}));
    const QStringList odometry = numbersIn(message::odometry("odom", "base_link", 1, 2, 3));
    QVERIFY(odometry.contains("pose.pose.position.x"));
    QVERIFY(odometry.contains("pose.pose.orientation.w"));
}

void NumbersTest::each_path_leads_to_its_number_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<double>("number");
    QTest::newRow("integer") << "a" << 5.0;
    QTest::newRow("real") << "b.c" << 0.5;
    QTest::newRow("true") << "b.on" << 1.0;
    QTest::newRow("false") << "b.off" << 0.0;
    QTest::newRow("element") << "list[1]" << 8.0;
    QTest::newRow("field of an element") << "list[2].x" << 9.0;
    QTest::newRow("element of an element") << "list[3][0]" << 4.0;
    QTest::newRow("element of what looks like a place in a text") << "%2[1]" << 6.0;
}

void NumbersTest::each_path_leads_to_its_number()
{
    QFETCH(const QString, path);
    QFETCH(const double, number);
    const QCborMap message{
        {"a", 5},
        {"b", QCborMap{{"c", 0.5}, {"on", true}, {"off", false}}},
        {"list", QCborArray{7, 8, QCborMap{{"x", 9}}, QCborArray{4}}},
        {"%2", QCborArray{5, 6}},
    };
    QVERIFY(numbersIn(message).contains(path));
    QCOMPARE(numberAt(message, path), number);
}

void NumbersTest::what_is_no_path_leads_to_no_number_data()
{
    QTest::addColumn<QString>("path");
    for (const char* path :
         {"",         ".",       "[",       "[]",       "[0]",  "a.",    "a.x",       "a[0]",
          "x",        "b",       "b.",      "b..c",     "list", "list[", "list[]",    "list[1",
          "list[-1]", "list[9]", "list[x]", "list[0]]", "text", "none",  "list[0][0]"})
        QTest::newRow(path) << path;
}

void NumbersTest::what_is_no_path_leads_to_no_number()
{
    QFETCH(const QString, path);
    const QCborMap message{{"a", 5},
                           {"b", QCborMap{{"c", 0.5}}},
                           {"list", QCborArray{7}},
                           {"none", QCborValue(nullptr)},
                           {"text", "7"}};
    QVERIFY(std::isnan(numberAt(message, path)));
    QVERIFY(std::isnan(numberAt(Variant(std::string("7")), path)));
}

void NumbersTest::long_arrays_are_left_out()
{
    QCOMPARE(numbersIn(QCborMap{{"list", ones(mostElements)}}).size(), mostElements);
    const QCborMap tooLong{{"list", ones(mostElements + 1)}, {"other", 1}};
    QCOMPARE(numbersIn(tooLong), QStringList("other"));
    QCOMPARE(numberAt(tooLong, "list[16]"), 1.0); // of who knows better
}

void NumbersTest::no_message_has_too_many()
{
    QCborMap wide;
    for (int i = 0; i < 2 * mostNumbers; ++i)
        wide.insert(QString::number(i), i);
    QCOMPARE(numbersIn(wide).size(), mostNumbers);

    QCborMap deep{{"x", 1}};
    for (int i = 0; i < 2 * deepestMessage; ++i)
        deep = QCborMap{{"x", deep}};
    QCOMPARE(numbersIn(deep), QStringList());
    QCOMPARE(numbersIn(QCborMap{{QString(longestPath + 1, 'x'), 1}}), QStringList());
}

void NumbersTest::typed_arrays_are_arrays_too()
{
    const QCborMap message{{"position", rosbridge::protocol::typedArray({0.5F, -2.0F})}};
    QCOMPARE(numbersIn(message), (QStringList{"position[0]", "position[1]"}));
    QCOMPARE(numberAt(message, "position[1]"), -2.0);
    QVERIFY(std::isnan(numberAt(message, "position[2]")));
    QVERIFY(std::isnan(numberAt(message, "position")));
}

void NumbersTest::variables_have_numbers_as_well()
{
    QCOMPARE(numbersIn(Variant(3U)), QStringList(QString()));
    QCOMPARE(numberAt(Variant(3U), QString()), 3.0);
    QCOMPARE(numberAt(Variant(true), QString()), 1.0);
    QCOMPARE(numberAt(Variant(-4), QString()), -4.0);
    QCOMPARE(numberAt(Variant(0.25F), QString()), 0.25);
    QCOMPARE(numberAt(Variant(0.1), QString()), 0.1);
    Vector<float> vector(2);
    vector[1] = 1.5F;
    QCOMPARE(numbersIn(Variant(vector)), (QStringList{"[0]", "[1]"}));
    QCOMPARE(numberAt(Variant(vector), "[1]"), 1.5);
    QVERIFY(std::isnan(numberAt(Variant(vector), "[2]")));
    QVERIFY(std::isnan(numberAt(Variant(vector), QString())));
    QCOMPARE(numbersIn(Variant(std::string("5"))), QStringList());
    QCOMPARE(numbersIn(Variant()), QStringList());
    QCOMPARE(numbersIn(Variant(Vector<float>(mostElements + 1))), QStringList());
}

TEST_WITHOUT_WINDOWS(NumbersTest)

} // namespace numbers_test

#include "NumbersTest.moc"
