// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionModel.h"

#include "Positions.h"
#include "TestCase.h"

#include <QtTest>

#include <limits>

namespace position_model_test {

class PositionModelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_row_stands_for_each_position_the_device_has_now_data();
    void a_row_stands_for_each_position_the_device_has_now();
    void the_columns_are_the_name_and_nine_axes();
    void every_cell_can_be_selected_and_edited();
    void headers_are_translated_and_numbered_from_one();
    void an_axis_shows_its_target_and_speed_without_decimals_data();
    void an_axis_shows_its_target_and_speed_without_decimals();
    void an_axis_beyond_a_short_vector_is_zero_data();
    void an_axis_beyond_a_short_vector_is_zero();
    void a_position_of_another_type_is_zero_on_every_axis();
    void a_name_is_shown_as_it_is_stored_data();
    void a_name_is_shown_as_it_is_stored();
    void other_roles_show_nothing_and_write_nothing();
    void a_cell_that_does_not_exist_shows_nothing_and_is_not_written();
    void a_model_without_its_owner_is_empty_and_writes_nothing();
};

void PositionModelTest::a_row_stands_for_each_position_the_device_has_now_data()
{
    QTest::addColumn<Variant>("count");
    QTest::addColumn<int>("rows");
    QTest::newRow("missing") << Variant() << 0;
    QTest::newRow("none") << Variant(0) << 0;
    QTest::newRow("three") << Variant(3) << 3;
    QTest::newRow("above the maximum") << Variant(12) << 12;
    QTest::newRow("negative") << Variant(-3) << -3;
    QTest::newRow("unsigned") << Variant(4u) << 4;
    QTest::newRow("text of a number") << Variant(std::string("2")) << 2;
    QTest::newRow("text") << Variant(std::string("many")) << 0;
    QTest::newRow("vector") << Variant(countedValues(2)) << 0;
}

void PositionModelTest::a_row_stands_for_each_position_the_device_has_now()
{
    QFETCH(Variant, count);
    FakeHost host;
    host.set(Kind::Config, "num_pos", 1);
    host.set(Kind::Config, "num_pos_max", 5);
    Owner owner(host);
    const PositionModel model(&owner);
    QCOMPARE(model.rowCount(), 1);

    host.set(Kind::Config, "num_pos", count);

    QTEST(model.rowCount(), "rows");
    QTEST(model.rowCount(model.index(0, 0)), "rows");
}

void PositionModelTest::the_columns_are_the_name_and_nine_axes()
{
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    const PositionModel model(&owner);

    QCOMPARE(model.columnCount(), 10);
    QCOMPARE(model.QObject::parent(), &owner);
    QCOMPARE(host.calls, QStringList());
    QCOMPARE(model.columnCount(model.index(0, 0)), 10);
}

void PositionModelTest::every_cell_can_be_selected_and_edited()
{
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    const PositionModel model(&owner);

    for (int column = 0; column < 10; ++column)
        QCOMPARE(static_cast<int>(model.flags(model.index(0, column))), 0x23);
    QCOMPARE(static_cast<int>(model.flags(QModelIndex())), 0x23);
}

void PositionModelTest::headers_are_translated_and_numbered_from_one()
{
    FakeHost host;
    Owner owner(host);
    const PositionModel model(&owner);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QString("name"));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QString("Axis1"));
    QCOMPARE(model.headerData(9, Qt::Horizontal).toString(), QString("Axis9"));
    QCOMPARE(model.headerData(0, Qt::Vertical).toString(), QString("Pos1"));
    QCOMPARE(model.headerData(11, Qt::Vertical).toString(), QString("Pos12"));

    host.dictionary = {{"name", "Bezeichnung"}, {"Axis", "Achse %1 "}, {"Pos", "Stellung %1 "}};

    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QString("Bezeichnung"));
    QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QString("Achse %1 2"));
    QCOMPARE(model.headerData(2, Qt::Vertical).toString(), QString("Stellung %1 3"));
    for (int role = Qt::DecorationRole; role <= Qt::UserRole; ++role) {
        QVERIFY(!model.headerData(0, Qt::Horizontal, role).isValid());
        QVERIFY(!model.headerData(1, Qt::Vertical, role).isValid());
    }
}

void PositionModelTest::an_axis_shows_its_target_and_speed_without_decimals_data()
{
    const float infinity = std::numeric_limits<float>::infinity();
    QTest::addColumn<float>("target");
    QTest::addColumn<float>("speed");
    QTest::addColumn<QString>("text");
    QTest::newRow("rounded") << 90.4f << 30.0f << "90 [30]";
    QTest::newRow("rounded up") << 12.6f << 6.75f << "13 [7]";
    QTest::newRow("zero") << 0.0f << 0.0f << "0 [0]";
    QTest::newRow("negative") << -12.4f << -7.0f << "-12 [-7]";
    QTest::newRow("thousands") << 1234567.0f << 1000.0f << "1234567 [1000]";
    QTest::newRow("huge") << 1e20f << 3e9f << "100000002004087734272 [3000000000]";
    QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN() << 1.0f << "nan [1]";
    QTest::newRow("infinite") << infinity << -infinity << "inf [-inf]";
}

void PositionModelTest::an_axis_shows_its_target_and_speed_without_decimals()
{
    QFETCH(float, target);
    QFETCH(float, speed);
    FakeHost host;
    setPositions(host, 3, 5);
    Values values = countedValues(18);
    values[4] = target;
    values[5] = speed;
    host.set(Kind::Config, "pos2", values);
    Owner owner(host);
    const PositionModel model(&owner);

    QTEST(model.index(2, 3).data(Qt::DisplayRole).toString(), "text");
    QTEST(model.index(2, 3).data(Qt::EditRole).toString(), "text");
    QCOMPARE(model.index(2, 2).data().toString(), QString("3 [4]"));
    QCOMPARE(model.index(2, 4).data().toString(), QString("7 [8]"));
}

void PositionModelTest::an_axis_beyond_a_short_vector_is_zero_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("axes");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1") << 1 << 0;
    QTest::newRow("4") << 4 << 2;
    QTest::newRow("17") << 17 << 8;
    QTest::newRow("18") << 18 << 9;
    QTest::newRow("19") << 19 << 9;
    QTest::newRow("40") << 40 << 9;
}

void PositionModelTest::an_axis_beyond_a_short_vector_is_zero()
{
    QFETCH(int, size);
    QFETCH(int, axes);
    FakeHost host;
    setPositions(host, 1, 5);
    host.set(Kind::Config, "pos0", countedValues(static_cast<unsigned int>(size)));
    Owner owner(host);
    const PositionModel model(&owner);

    for (int axis = 0; axis < 9; ++axis) {
        const QString shown = QString("%1 [%2]").arg(2 * axis + 1).arg(2 * axis + 2);
        QCOMPARE(model.index(0, axis + 1).data().toString(), axis < axes ? shown : "0 [0]");
    }
}

void PositionModelTest::a_position_of_another_type_is_zero_on_every_axis()
{
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    const PositionModel model(&owner);
    const QList<Variant> others{Variant(), Variant(7), Variant(std::string("90 [30]")),
                                Variant(olm::core::Vector<unsigned int>(18)), Variant(1.5f)};
    for (const Variant& other : others) {
        host.set(Kind::Config, "pos0", other);
        QCOMPARE(model.index(0, 1).data().toString(), QString("0 [0]"));
        QCOMPARE(model.index(0, 9).data().toString(), QString("0 [0]"));
    }
}

void PositionModelTest::a_name_is_shown_as_it_is_stored_data()
{
    QTest::addColumn<Variant>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("text") << Variant(std::string("Home")) << "Home";
    QTest::newRow("blanks and brackets") << Variant(std::string(" a [b] ")) << " a [b] ";
    QTest::newRow("Latin-1") << Variant(std::string("H\xf6he"))
                             << QString("H%1he").arg(QChar(0xf6));
    QTest::newRow("missing") << Variant() << "";
    QTest::newRow("number") << Variant(7) << "7";
    QTest::newRow("vector") << Variant(countedValues(3)) << "";
}

void PositionModelTest::a_name_is_shown_as_it_is_stored()
{
    QFETCH(Variant, stored);
    FakeHost host;
    setPositions(host, 2, 5);
    host.set(Kind::Config, "pos1_name", stored);
    Owner owner(host);
    const PositionModel model(&owner);

    QTEST(model.index(1, 0).data(Qt::DisplayRole).toString(), "shown");
    QTEST(model.index(1, 0).data(Qt::EditRole).toString(), "shown");
    QCOMPARE(model.index(0, 0).data().toString(), QString("first"));
}

void PositionModelTest::other_roles_show_nothing_and_write_nothing()
{
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    PositionModel model(&owner);
    const QModelIndex name = model.index(0, 0);
    const QModelIndex axis = model.index(0, 1);
    host.calls.clear();

    for (int role = Qt::DisplayRole; role <= Qt::UserRole; ++role) {
        if (role != Qt::DisplayRole && role != Qt::EditRole) {
            QVERIFY(!model.data(name, role).isValid());
            QVERIFY(!model.data(axis, role).isValid());
        }
        if (role != Qt::EditRole) {
            QVERIFY(!model.setData(name, "name", role));
            QVERIFY(!model.setData(axis, "1 [2]", role));
        }
    }
    QCOMPARE(host.calls, QStringList());
}

void PositionModelTest::a_cell_that_does_not_exist_shows_nothing_and_is_not_written()
{
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    PositionModel model(&owner);
    host.calls.clear();

    QVERIFY(!model.data(QModelIndex()).isValid());
    QVERIFY(!model.setData(QModelIndex(), "1 [2]"));
    QCOMPARE(host.calls, QStringList());
}

void PositionModelTest::a_model_without_its_owner_is_empty_and_writes_nothing()
{
    FakeHost host;
    setPositions(host, 2, 5);
    QScopedPointer<Owner> owner(new Owner(host));
    PositionModel model(owner.data());
    model.setParent(nullptr);
    const QModelIndex name = model.index(1, 0);
    const QModelIndex axis = model.index(1, 1);
    owner.reset();
    host.calls.clear();

    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(name.data().toString(), QString());
    QCOMPARE(axis.data().toString(), QString("0 [0]"));
    QVERIFY(!model.setData(name, "name"));
    QVERIFY(!model.setData(axis, "1 [2]"));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QString("Axis1"));
    model.addPos();
    model.removePos(0);
    model.translate();
    QCOMPARE(host.calls, QStringList());
}

TEST_WITH_WINDOWS(PositionModelTest)

} // namespace position_model_test

#include "PositionModelTest.moc"
