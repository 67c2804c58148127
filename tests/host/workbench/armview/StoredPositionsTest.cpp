// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/armview/StoredPositions.h"
#include "olm/core/Vector.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace stored_positions_test {

using namespace host::workbench::armview;
using host::device::variables::Variables;
using plugin::gui::VariableKind;

namespace {

void set(Variables& variables, const char* name, const Variables::Variant& value)
{
    variables.set(VariableKind::Config, name, value);
}

olm::core::Vector<float> numbers(std::initializer_list<float> list)
{
    olm::core::Vector<float> vector;
    for (const float number : list)
        vector.append(number);
    return vector;
}

QString nameIn(const StoredPositions& positions, int row)
{
    return positions.index(row).data().toString();
}

} // namespace

/// The list of positions beside the variables that hold them.
class StoredPositionsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_has_what_the_variables_have();
    void it_follows_the_variables();
    void what_is_not_stored_is_nothing_to_go_to();
    void a_strange_count_does_no_harm();
    void a_name_is_no_markup();
};

void StoredPositionsTest::it_has_what_the_variables_have()
{
    Variables variables;
    set(variables, "num_pos", 2);
    set(variables, "pos0", numbers({90, 30, 120.4F, 50}));
    set(variables, "pos0_name", std::string("Home"));
    set(variables, "pos1_name", std::string("Gr\xfc\xdf"));
    const StoredPositions positions(variables);
    QCOMPARE(positions.rowCount(), 2);
    QCOMPARE(nameIn(positions, 0), QString("Home"));
    QCOMPARE(nameIn(positions, 1), QString("Grüß"));
    QCOMPARE(positions.at(0)->axes[0].target, 90.0F);
    QCOMPARE(positions.at(0)->axes[0].speed, 30.0F);
    QCOMPARE(positions.at(0)->axes[1].target, 120.4F);
    const QString tip = positions.index(0).data(Qt::ToolTipRole).toString();
    QVERIFY2(tip.contains("Axis 2: 120 [50]"), qPrintable(tip));
    QVERIFY(!positions.at(2));
    QVERIFY(!positions.at(-1));
}

void StoredPositionsTest::it_follows_the_variables()
{
    Variables variables;
    set(variables, "num_pos", 1);
    set(variables, "pos0_name", std::string("Pos1"));
    StoredPositions positions(variables);
    const QAbstractItemModelTester tester(&positions);
    set(variables, "pos1", numbers({10, 20}));
    set(variables, "pos1_name", std::string("Pos2"));
    set(variables, "num_pos", 2);
    QTRY_COMPARE_WITH_TIMEOUT(positions.rowCount(), 2, patience);
    QCOMPARE(nameIn(positions, 1), QString("Pos2"));
    set(variables, "pos0_name", std::string("Home"));
    QTRY_COMPARE_WITH_TIMEOUT(nameIn(positions, 0), QString("Home"), patience);
    set(variables, "pos1", numbers({10, 25}));
    QTRY_COMPARE_WITH_TIMEOUT(positions.at(1)->axes[0].speed, 25.0F, patience);
    set(variables, "num_pos", 0);
    QTRY_COMPARE_WITH_TIMEOUT(positions.rowCount(), 0, patience);
}

void StoredPositionsTest::what_is_not_stored_is_nothing_to_go_to()
{
    Variables variables;
    set(variables, "num_pos", 1);
    set(variables, "pos0", numbers({90, 30, 45})); // the second axis lacks its speed
    const StoredPositions positions(variables);
    QCOMPARE(positions.at(0)->axes[1].target, 0.0F);
    QCOMPARE(positions.at(0)->axes[1].speed, 0.0F); // which stops an axis
    QCOMPARE(nameIn(positions, 0), QString());
}

void StoredPositionsTest::a_strange_count_does_no_harm()
{
    Variables variables;
    StoredPositions positions(variables);
    QCOMPARE(positions.rowCount(), 0);
    set(variables, "num_pos", 2000000000);
    QTRY_COMPARE_WITH_TIMEOUT(positions.rowCount(), 1000, patience);
    set(variables, "num_pos", -1);
    QTRY_COMPARE_WITH_TIMEOUT(positions.rowCount(), 0, patience);
    set(variables, "num_pos", std::string("many"));
    QCoreApplication::processEvents();
    QCOMPARE(positions.rowCount(), 0);
}

void StoredPositionsTest::a_name_is_no_markup()
{
    Variables variables;
    set(variables, "num_pos", 1);
    set(variables, "pos0_name", std::string("<b>bold</b>"));
    const StoredPositions positions(variables);
    const QString tip = positions.index(0).data(Qt::ToolTipRole).toString();
    QVERIFY2(tip.contains("&lt;b&gt;bold"), qPrintable(tip));
}

TEST_WITHOUT_WINDOWS(StoredPositionsTest)

} // namespace stored_positions_test

#include "StoredPositionsTest.moc"
