// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Positions.h"
#include "TestCase.h"

#include "host/workbench/positions/PositionTable.h"

#include <QRandomGenerator>
#include <QtTest>

#include <limits>

namespace position_table_test {

using host::device::variables::Position;
using host::workbench::positions::fromTable;
using host::workbench::positions::toTable;
using Positions = std::vector<Position>;

namespace {

const QByteArray head = "name,axis1_target,axis1_speed,axis2_target,axis2_speed,axis3_target,"
                        "axis3_speed,axis4_target,axis4_speed,axis5_target,axis5_speed,"
                        "axis6_target,axis6_speed,axis7_target,axis7_speed,axis8_target,"
                        "axis8_speed,axis9_target,axis9_speed";

/// A row whose axes are all alike.
QByteArray row(const QByteArray& name, const QByteArray& axis, char separator = ',')
{
    QByteArray row = name;
    for (int i = 0; i < 9; ++i)
        row += separator + axis;
    return row;
}

QString faultOf(const QByteArray& table)
{
    QString fault;
    return fromTable(table, &fault) ? "none" : fault;
}

} // namespace

/// Positions as a table of comma-separated values.
class PositionTableTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void positions_are_written_as_spreadsheets_read_them();
    void whatever_is_written_reads_as_the_same();
    void tables_of_spreadsheets_are_read_data();
    void tables_of_spreadsheets_are_read();
    void a_table_that_is_none_is_refused_with_the_place_data();
    void a_table_that_is_none_is_refused_with_the_place();
};

void PositionTableTest::positions_are_written_as_spreadsheets_read_them()
{
    Position first = position("the \"first\", Gr\u00fc\u00df", 0, 30);
    first.axes[1] = {-0.1F, 143};
    QByteArray axes = ",0,30,-0.1,143";
    for (int axis = 2; axis < 9; ++axis)
        axes += ",0,30";
    QCOMPARE(toTable({first}),
             head + "\r\n\"the \"\"first\"\", Gr\xc3\xbc\xc3\x9f\"" + axes + "\r\n");
    QCOMPARE(toTable({}), head + "\r\n");
}

void PositionTableTest::whatever_is_written_reads_as_the_same()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 200; ++round) {
        Positions positions(static_cast<std::size_t>(random.bounded(4)));
        for (Position& position : positions) {
            for (int i = random.bounded(1, 8); i > 0; --i)
                position.name += random.bounded(2) == 0
                                     ? QString("\",;\t\n' =").at(random.bounded(8))
                                     : QChar(random.bounded(0x20, 0x100));
            for (Position::Axis& axis : position.axes)
                axis = {static_cast<float>(random.generateDouble() * 1000 - 500),
                        static_cast<float>(random.generateDouble())};
            position.axes[3] = {std::numeric_limits<float>::max(),
                                std::numeric_limits<float>::denorm_min()};
        }
        QString fault;
        const auto read = fromTable(toTable(positions), &fault);
        QVERIFY2(read && *read == positions, qPrintable(fault + toTable(positions)));
    }
}

void PositionTableTest::tables_of_spreadsheets_are_read_data()
{
    QTest::addColumn<QByteArray>("table");

    const QByteArray semicolons = QByteArray(head).replace(',', ';');
    const QByteArray tabs = QByteArray(head).replace(',', '\t');
    QTest::newRow("commas") << head + "\n" + row("Home", "1.5,2") + "\n";
    QTest::newRow("no last line end") << head + "\n" + row("Home", "1.5,2");
    QTest::newRow("byte order mark") << "\xef\xbb\xbf" + head + "\r\n" + row("Home", "1.5,2");
    QTest::newRow("quotes") << head + "\n" + row("\"Home\"", "\"1.5\",\"2\"");
    QTest::newRow("blanks and empty lines")
        << head + "\n\n" + row("Home", " 1.5 ,2") + "\n" + QByteArray(18, ',') + "\n";
    QTest::newRow("semicolons, decimal commas") << semicolons + "\n" + row("Home", "1,5;2,0", ';');
    QTest::newRow("tabs") << tabs + "\n" + row("Home", "1.5\t2", '\t');
}

void PositionTableTest::tables_of_spreadsheets_are_read()
{
    QFETCH(const QByteArray, table);
    QString fault;
    const auto positions = fromTable(table, &fault);
    QVERIFY2(positions, qPrintable(fault));
    QVERIFY(*positions == Positions({position("Home", 1.5F, 2)}));
}

void PositionTableTest::a_table_that_is_none_is_refused_with_the_place_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("fault");

    const QString columns("The first row must have the names of the columns: name, axis1_target … "
                          "axis9_speed.");
    QTest::newRow("nothing") << QByteArray() << columns;
    QTest::newRow("no names") << row("Home", "1,2") << columns;
    QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n\0", 9)
                               << "This is not text in UTF-8.";
    QTest::newRow("Latin-1") << head + "\n" + row("Gr\xfc\xdf", "1,2")
                             << "This is not text in UTF-8.";
    QTest::newRow("open quote") << head + "\n" + row("\"Home", "1,2") << "A quote is not closed.";
    QTest::newRow("too few") << head + "\n" + row("Home", "1,2") + "\nGrasp,1,2"
                             << "Row 3: 3 columns instead of 19.";
    QTest::newRow("too many") << head + "\n" + row("Home", "1,2") + ",3"
                              << "Row 2: 20 columns instead of 19.";
    QTest::newRow("no number") << head + "\n" + row("Home", "1,fast")
                               << "Row 2: axis1_speed: \"fast\" is not a number.";
    QTest::newRow("no finite number")
        << head + "\n" + row("Home", "nan,1") << "Row 2: axis1_target: \"nan\" is not a number.";
    QTest::newRow("decimal comma among commas") << head + "\n" + row("Home", "\"1,5\",1")
                                                << "Row 2: axis1_target: \"1,5\" is not a number.";
    QTest::newRow("a name beyond Latin-1")
        << head + "\n" + row("\xce\xa9%1", "1,1")
        << QString::fromUtf8(
               "Row 2: the name \"\xce\xa9%1\" has the character \"\xce\xa9\", which a "
               "device cannot store.");
}

void PositionTableTest::a_table_that_is_none_is_refused_with_the_place()
{
    QFETCH(const QByteArray, table);
    QFETCH(const QString, fault);
    QCOMPARE(faultOf(table), fault);
}

TEST_WITHOUT_WINDOWS(PositionTableTest)

} // namespace position_table_test

#include "PositionTableTest.moc"
