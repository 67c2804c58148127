// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Positions.h"
#include "TestCase.h"

#include "host/workbench/positions/ImportPlan.h"

#include <QtTest>

namespace import_plan_test {

using host::workbench::positions::ImportPlan;
using Positions = ImportPlan::Positions;
using Way = ImportPlan::Way;

namespace {

const Positions& stored()
{
    static const Positions positions{position("Home", 90, 30), position("Grasp", 120, 20)};
    return positions;
}

/// "changed Home, added Rest": each row's change and name.
QString inWords(const ImportPlan& plan)
{
    static const char* const changes[] = {"same", "changed", "added", "removed"};
    QStringList words;
    for (int row = 0; row < plan.rowCount(); ++row)
        words << QString("%1 %2").arg(changes[static_cast<int>(plan.change(row))],
                                      plan.after(row).name);
    return words.join(", ");
}

} // namespace

/// ImportPlan: what becomes of the stored positions.
class ImportPlanTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rows_say_what_becomes_of_them();
    void added_positions_come_last();
    void both_sides_of_a_change_are_there();
    void there_is_room_up_to_the_last_position();
};

void ImportPlanTest::rows_say_what_becomes_of_them()
{
    const ImportPlan fewer(stored(), {position("Home", 90, 30)}, Way::Replace, 16);
    QCOMPARE(inWords(fewer), QString("same Home, removed Grasp"));
    QVERIFY(fewer.changesAnything());
    const ImportPlan more(
        stored(), {position("Home", 91, 30), position("Grasp", 120, 20), position("Rest", 1, 2)},
        Way::Replace, 16);
    QCOMPARE(inWords(more), QString("changed Home, same Grasp, added Rest"));
    const ImportPlan same(stored(), stored(), Way::Replace, 16);
    QCOMPARE(inWords(same), QString("same Home, same Grasp"));
    QVERIFY(!same.changesAnything());
}

void ImportPlanTest::added_positions_come_last()
{
    const ImportPlan plan(stored(), {position("Home", 1, 2)}, Way::Add, 16);
    QCOMPARE(inWords(plan), QString("same Home, same Grasp, added Home"));
    QCOMPARE(plan.result().back().axes[0].target, 1.0F);
    QVERIFY(!ImportPlan(stored(), {}, Way::Add, 16).changesAnything());
}

void ImportPlanTest::both_sides_of_a_change_are_there()
{
    const ImportPlan plan(stored(), {position("Rest", 1, 2)}, Way::Replace, 16);
    QCOMPARE(plan.before(0).name, QString("Home"));
    QCOMPARE(plan.after(0).name, QString("Rest"));
    QCOMPARE(plan.before(1).name, QString("Grasp"));
    QCOMPARE(plan.after(1).name, QString("Grasp"));
}

void ImportPlanTest::there_is_room_up_to_the_last_position()
{
    const Positions one{position("Rest", 1, 2)};
    QVERIFY(ImportPlan(stored(), one, Way::Add, 3).hasRoom());
    QVERIFY(!ImportPlan(stored(), one, Way::Add, 2).hasRoom());
    QVERIFY(ImportPlan(stored(), one, Way::Replace, 1).hasRoom());
}

TEST_WITHOUT_WINDOWS(ImportPlanTest)

} // namespace import_plan_test

#include "ImportPlanTest.moc"
