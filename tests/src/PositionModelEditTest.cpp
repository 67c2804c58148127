// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionModel.h"
#include "Positions.h"
#include "TestCase.h"

#include <QtTest>

#include <limits>

namespace position_model_edit_test {

/// What the table of positions writes: edited cells, added and removed positions.
class PositionModelEditTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_text_of_an_axis_is_read_as_target_and_speed_data();
    void the_text_of_an_axis_is_read_as_target_and_speed();
    void numbers_that_are_none_are_stored_as_they_are();
    void an_edited_position_has_eighteen_values_data();
    void an_edited_position_has_eighteen_values();
    void a_position_of_another_type_is_replaced();
    void an_edit_leaves_the_other_axes_and_copies_alone();
    void a_name_is_stored_as_it_was_typed_data();
    void a_name_is_stored_as_it_was_typed();
    void an_added_position_is_a_copy_of_the_last();
    void the_first_position_is_only_counted_data();
    void the_first_position_is_only_counted();
    void a_copied_position_is_of_the_tables_types_whatever_it_was();
    void a_full_table_takes_no_position_data();
    void a_full_table_takes_no_position();
    void a_removed_position_is_closed_up_data();
    void a_removed_position_is_closed_up();
    void nothing_is_removed_from_an_empty_table();
    void a_count_below_zero_is_lowered_further();
    void no_signal_is_sent_before_the_device_reports_the_change();
};

void PositionModelEditTest::the_text_of_an_axis_is_read_as_target_and_speed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("target");
    QTest::addColumn<float>("speed");
    QTest::newRow("as shown") << "90 [30]" << 90.0f << 30.0f;
    QTest::newRow("without brackets") << "90 30" << 90.0f << 30.0f;
    QTest::newRow("one bracket") << "90 [30" << 90.0f << 30.0f;
    QTest::newRow("many brackets") << "90 ]][3[0]" << 90.0f << 30.0f;
    QTest::newRow("decimals") << "12.6 [7.25]" << 12.6f << 7.25f;
    QTest::newRow("exponents") << "1e2 [-2.5e1]" << 100.0f << -25.0f;
    QTest::newRow("target alone") << "90" << 90.0f << 0.0f;
    QTest::newRow("nothing") << "" << 0.0f << 0.0f;
    QTest::newRow("blanks") << "   " << 0.0f << 0.0f;
    QTest::newRow("many blanks") << "   90   [30]  " << 90.0f << 30.0f;
    QTest::newRow("further parts") << "90 [30] 40 [50]" << 90.0f << 30.0f;
    QTest::newRow("a blank in the brackets") << "90 [ 30]" << 90.0f << 0.0f;
    QTest::newRow("no blank") << "90[30]" << 0.0f << 0.0f;
    QTest::newRow("target in brackets") << "[90] 30" << 0.0f << 30.0f;
    QTest::newRow("words") << "fast [slow]" << 0.0f << 0.0f;
    QTest::newRow("a word and a number") << "fast [30]" << 0.0f << 30.0f;
    QTest::newRow("commas") << "1,5 [1,000]" << 0.0f << 0.0f;
}

void PositionModelEditTest::the_text_of_an_axis_is_read_as_target_and_speed()
{
    QFETCH(QString, text);
    QFETCH(float, target);
    QFETCH(float, speed);
    FakeHost host;
    setPositions(host, 3, 5);
    host.set(Kind::Config, "pos1", countedValues(18));
    Owner owner(host);
    PositionModel model(&owner);
    const QModelIndex index = model.index(1, 3);
    host.calls.clear();

    QVERIFY(model.setData(index, text, Qt::EditRole));

    QCOMPARE(host.calls, (QStringList{"read config pos1", "write config pos1"}));
    Values expected = countedValues(18);
    expected[4] = target;
    expected[5] = speed;
    QVERIFY(storedValues(host, "pos1") == expected);
}

void PositionModelEditTest::numbers_that_are_none_are_stored_as_they_are()
{
    FakeHost host;
    setPositions(host, 1, 5);
    Owner owner(host);
    PositionModel model(&owner);

    QVERIFY(model.setData(model.index(0, 1), "inf [-inf]"));
    QVERIFY(model.setData(model.index(0, 2), "nan [1]"));

    const Values stored = storedValues(host, "pos0");
    QCOMPARE(stored[0], std::numeric_limits<float>::infinity());
    QCOMPARE(stored[1], -std::numeric_limits<float>::infinity());
    QVERIFY(qIsNaN(stored[2]));
    QCOMPARE(model.index(0, 1).data().toString(), QString("inf [-inf]"));
    QCOMPARE(model.index(0, 2).data().toString(), QString("nan [1]"));
}

void PositionModelEditTest::an_edited_position_has_eighteen_values_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 4, 17, 18, 19, 40})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void PositionModelEditTest::an_edited_position_has_eighteen_values()
{
    QFETCH(int, size);
    for (int axis = 0; axis < 9; ++axis) {
        FakeHost host;
        setPositions(host, 1, 5);
        host.set(Kind::Config, "pos0", countedValues(static_cast<unsigned int>(size)));
        Owner owner(host);
        PositionModel model(&owner);

        QVERIFY(model.setData(model.index(0, axis + 1), "120 [7]"));

        const Values stored = storedValues(host, "pos0");
        QCOMPARE(stored.size(), 18u);
        for (int i = 0; i < 18; ++i) {
            if (i / 2 == axis)
                QCOMPARE(stored[i], i % 2 == 0 ? 120.0f : 7.0f);
            else
                QCOMPARE(stored[i], i < size ? static_cast<float>(i + 1) : 0.0f);
        }
    }
}

void PositionModelEditTest::a_position_of_another_type_is_replaced()
{
    const QList<Variant> others{Variant(), Variant(7), Variant(std::string("90 [30]")),
                                Variant(olm::core::Vector<unsigned int>(18)), Variant(1.5f)};
    for (const Variant& other : others) {
        FakeHost host;
        setPositions(host, 1, 5);
        host.set(Kind::Config, "pos0", other);
        Owner owner(host);
        PositionModel model(&owner);

        QVERIFY(model.setData(model.index(0, 2), "8 [9]"));

        Values expected(18);
        expected[2] = 8;
        expected[3] = 9;
        QVERIFY(storedValues(host, "pos0") == expected);
    }
}

void PositionModelEditTest::an_edit_leaves_the_other_axes_and_copies_alone()
{
    FakeHost host;
    setPositions(host, 2, 5);
    const Values shared = countedValues(18);
    host.set(Kind::Config, "pos0", shared);
    host.set(Kind::Config, "pos1", shared);
    Owner owner(host);
    PositionModel model(&owner);

    QVERIFY(model.setData(model.index(1, 9), "100 [50]"));

    Values expected = countedValues(18);
    expected[16] = 100;
    expected[17] = 50;
    QVERIFY(storedValues(host, "pos1") == expected);
    QVERIFY(storedValues(host, "pos0") == countedValues(18));
    QVERIFY(shared == countedValues(18));
}

void PositionModelEditTest::a_name_is_stored_as_it_was_typed_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("stored");
    QTest::newRow("text") << "Home" << QByteArray("Home");
    QTest::newRow("nothing") << "" << QByteArray("");
    QTest::newRow("blanks and brackets") << "  90 [30] " << QByteArray("  90 [30] ");
    QTest::newRow("Latin-1") << QString("H%1he").arg(QChar(0xf6)) << QByteArray("H\xf6he");
    QTest::newRow("beyond Latin-1") << QString("a%1b").arg(QChar(0x2192)) << QByteArray("a?b");
    QTest::newRow("a zero character") << QString("a%1b").arg(QChar(0)) << QByteArray("a\0b", 3);
}

void PositionModelEditTest::a_name_is_stored_as_it_was_typed()
{
    QFETCH(QString, typed);
    QFETCH(QByteArray, stored);
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);
    const QModelIndex index = model.index(2, 0);
    host.calls.clear();

    QVERIFY(model.setData(index, typed, Qt::EditRole));

    QCOMPARE(host.calls, QStringList("write config pos2_name"));
    const Variant name = host.variables[{Kind::Config, "pos2_name"}];
    QCOMPARE(QByteArray::fromStdString(name.get<std::string>()), stored);
}

void PositionModelEditTest::an_added_position_is_a_copy_of_the_last()
{
    FakeHost host;
    setPositions(host, 3, 5);
    host.set(Kind::Config, "pos2", countedValues(4));
    Owner owner(host);
    PositionModel model(&owner);

    model.addPos();

    QCOMPARE(host.calls,
             (QStringList{"read config num_pos", "read config num_pos_max", "read config pos2",
                          "write config pos3", "write config pos3_name", "write config num_pos"}));
    QVERIFY(storedValues(host, "pos3") == countedValues(4));
    QCOMPARE(storedText(host, "pos3_name"), QString("Pos4"));
    bool isInt = false;
    QCOMPARE((host.variables[{Kind::Config, "num_pos"}].get<int>(&isInt)), 4);
    QVERIFY(isInt);
}

void PositionModelEditTest::the_first_position_is_only_counted_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("fewer than none") << -2;
}

void PositionModelEditTest::the_first_position_is_only_counted()
{
    QFETCH(int, count);
    FakeHost host;
    setPositions(host, count, 5);
    Owner owner(host);
    PositionModel model(&owner);

    model.addPos();

    QCOMPARE(changes(host), QStringList("write config num_pos"));
    QCOMPARE((host.variables[{Kind::Config, "num_pos"}].get<int>()), count + 1);
}

void PositionModelEditTest::a_copied_position_is_of_the_tables_types_whatever_it_was()
{
    FakeHost host;
    setPositions(host, 2, 5);
    host.set(Kind::Config, "pos1", std::string("90 [30]"));
    host.set(Kind::Config, "pos1_name", 7);
    Owner owner(host);
    PositionModel model(&owner);
    const auto isEmptyPosition = [&host](const char* name) {
        bool isPosition = false;
        return host.variables[{Kind::Config, name}].get<Values>(&isPosition).isEmpty() &&
               isPosition;
    };

    model.addPos();
    QVERIFY(isEmptyPosition("pos2"));

    model.removePos(0);
    QVERIFY(isEmptyPosition("pos0"));
    bool isText = false;
    QCOMPARE((host.variables[{Kind::Config, "pos0_name"}].get<std::string>(&isText)),
             std::string("7"));
    QVERIFY(isText);
}

void PositionModelEditTest::a_full_table_takes_no_position_data()
{
    QTest::addColumn<Variant>("count");
    QTest::addColumn<Variant>("maximum");
    QTest::newRow("full") << Variant(3) << Variant(3);
    QTest::newRow("overfull") << Variant(4) << Variant(3);
    QTest::newRow("no room at all") << Variant(0) << Variant(0);
    QTest::newRow("negative room") << Variant(0) << Variant(-2);
    QTest::newRow("unknown") << Variant() << Variant();
    QTest::newRow("no number") << Variant(0) << Variant(std::string("some"));
}

void PositionModelEditTest::a_full_table_takes_no_position()
{
    QFETCH(Variant, count);
    QFETCH(Variant, maximum);
    FakeHost host;
    host.set(Kind::Config, "num_pos", count);
    host.set(Kind::Config, "num_pos_max", maximum);
    Owner owner(host);
    PositionModel model(&owner);

    model.addPos();

    QCOMPARE(changes(host), QStringList());
}

void PositionModelEditTest::a_removed_position_is_closed_up_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("written");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("first") << 0
                           << QStringList{"write config pos0", "write config pos0_name",
                                          "write config pos1", "write config pos1_name",
                                          "write config num_pos"}
                           << QStringList{"second", "third", "third"};
    QTest::newRow("middle") << 1
                            << QStringList{"write config pos1", "write config pos1_name",
                                           "write config num_pos"}
                            << QStringList{"first", "third", "third"};
    QTest::newRow("last") << 2 << QStringList{"write config num_pos"}
                          << QStringList{"first", "second", "third"};
    QTest::newRow("beyond") << 7 << QStringList{"write config num_pos"}
                            << QStringList{"first", "second", "third"};
    QTest::newRow("before the first")
        << -1 << QStringList{"write config pos-1",  "write config pos-1_name",
                             "write config pos0",   "write config pos0_name",
                             "write config pos1",   "write config pos1_name",
                             "write config num_pos"}
        << QStringList{"second", "third", "third"};
    QTest::newRow("far beyond") << std::numeric_limits<int>::max()
                                << QStringList{"write config num_pos"}
                                << QStringList{"first", "second", "third"};
}

void PositionModelEditTest::a_removed_position_is_closed_up()
{
    QFETCH(int, row);
    QFETCH(QStringList, written);
    QFETCH(QStringList, names);
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);

    model.removePos(row);

    QCOMPARE(changes(host), written);
    bool isInt = false;
    QCOMPARE((host.variables[{Kind::Config, "num_pos"}].get<int>(&isInt)), 2);
    QVERIFY(isInt);
    for (int i = 0; i < 3; ++i) {
        const std::string name = "pos" + std::to_string(i);
        const QString stored = storedText(host, (name + "_name").c_str());
        QCOMPARE(stored, names[i]);
        // The values went along with the name.
        const int origin =
            static_cast<int>(QStringList{"first", "second", "third"}.indexOf(stored));
        const Values values = storedValues(host, name.c_str());
        QCOMPARE(values.size(), 18u);
        QCOMPARE(values[0], 10.0f * static_cast<float>(origin + 1));
    }
}

void PositionModelEditTest::nothing_is_removed_from_an_empty_table()
{
    FakeHost host;
    setPositions(host, 0, 5);
    Owner owner(host);
    PositionModel model(&owner);

    model.removePos(0);

    QCOMPARE(host.calls, QStringList("read config num_pos"));
}

void PositionModelEditTest::a_count_below_zero_is_lowered_further()
{
    FakeHost host;
    setPositions(host, -2, 5);
    Owner owner(host);
    PositionModel model(&owner);

    model.removePos(0);

    QCOMPARE(changes(host), QStringList("write config num_pos"));
    QCOMPARE((host.variables[{Kind::Config, "num_pos"}].get<int>()), -3);
}

void PositionModelEditTest::no_signal_is_sent_before_the_device_reports_the_change()
{
    FakeHost host;
    setPositions(host, 3, 5);
    Owner owner(host);
    PositionModel model(&owner);
    QSignalSpy changed(&model, &PositionModel::dataChanged);
    QSignalSpy reset(&model, &PositionModel::modelReset);
    QSignalSpy inserted(&model, &PositionModel::rowsInserted);
    QSignalSpy removed(&model, &PositionModel::rowsRemoved);

    model.addPos();
    model.removePos(0);
    QVERIFY(model.setData(model.index(0, 0), "name"));
    QVERIFY(model.setData(model.index(0, 1), "1 [2]"));

    QCOMPARE(changed.size() + reset.size() + inserted.size() + removed.size(), 0);
}

TEST_WITH_WINDOWS(PositionModelEditTest)

} // namespace position_model_edit_test

#include "PositionModelEditTest.moc"
