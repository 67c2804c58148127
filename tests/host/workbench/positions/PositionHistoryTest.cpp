// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Positions.h"
#include "TestCase.h"

#include "host/workbench/positions/PositionHistory.h"
#include "olm/core/Vector.h"

#include <QSignalSpy>
#include <QtTest>

namespace position_history_test {

using host::workbench::positions::PositionHistory;
using olm::core::Vector;
using plugin::gui::VariableKind;

namespace {

struct Fixture : PositionsFixture
{
    using PositionsFixture::PositionsFixture;

    QUndoStack& stack() { return history.stack(); }

    /// What a widget writes until it returns to the event loop is one change.
    bool isTaken(int count)
    {
        return QTest::qWaitFor([&] { return stack().count() == count; }, patience);
    }

    PositionHistory history{device};
};

} // namespace

/// PositionHistory: what was done to the positions is undone and redone.
class PositionHistoryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_change_is_undone_and_redone();
    void a_change_is_named_for_what_it_does();
    void an_equal_value_is_no_change();
    void what_is_undone_is_stored();
    void values_of_a_strange_length_come_back_as_they_were();
    void a_new_change_ends_what_could_be_redone();
    void other_settings_are_left_alone();
};

void PositionHistoryTest::every_change_is_undone_and_redone()
{
    Fixture f;
    QVERIFY(f.connect());
    const QString first = f.inWords();
    QCOMPARE(first, QString("Home 90 30, Grasp 120.5 20"));
    f.store({position("Home", 90, 30)});
    QVERIFY(f.isTaken(1));
    f.store({position("Home", 45, 30), position("Place", 1, 2), position("Rest", 3, 4)});
    QVERIFY(f.isTaken(2));
    const QString last = f.inWords();
    for (int round = 0; round < 2; ++round) {
        f.stack().undo();
        QCOMPARE(f.inWords(), QString("Home 90 30"));
        f.stack().undo();
        QCOMPARE(f.inWords(), first);
        QVERIFY(!f.stack().canUndo());
        f.stack().redo();
        QCOMPARE(f.inWords(), QString("Home 90 30"));
        f.stack().redo();
        QCOMPARE(f.inWords(), last);
        QVERIFY(!f.stack().canRedo());
    }
    QVERIFY(f.settle()); // what was undone was no change
    QCOMPARE(f.stack().count(), 2);
}

void PositionHistoryTest::a_change_is_named_for_what_it_does()
{
    Fixture f;
    f.store({position("Home", 90, 30)});
    QVERIFY(f.isTaken(1));
    QCOMPARE(f.stack().undoText(), QString("remove a position"));
    f.store({position("Home", 91, 30)});
    QVERIFY(f.isTaken(2));
    QCOMPARE(f.stack().undoText(), QString("edit positions"));
    f.store({position("Home", 91, 30), position("A", 1, 1), position("B", 1, 1)});
    QVERIFY(f.isTaken(3));
    QCOMPARE(f.stack().undoText(), QString("add 2 positions"));
    f.stack().undo();
    QCOMPARE(f.stack().redoText(), QString("add 2 positions"));
}

void PositionHistoryTest::an_equal_value_is_no_change()
{
    Fixture f;
    QVERIFY(f.connect());
    QSignalSpy changes(&f.history, &PositionHistory::changed);
    f.store(f.stored());
    QVERIFY(f.settle());
    QCOMPARE(f.stack().count(), 0);
    QCOMPARE(changes.count(), 0);
}

void PositionHistoryTest::what_is_undone_is_stored()
{
    Fixture f;
    QVERIFY(f.connect());
    f.store({position("Home", 1, 2)});
    QVERIFY(f.isTaken(1));
    f.stack().undo();
    host::device::Device later("robot", f.folder.path(), f.environment, noHurry());
    QVERIFY(host::device::variables::storedPositions(later.variables()) == f.stored());
}

void PositionHistoryTest::values_of_a_strange_length_come_back_as_they_were()
{
    Fixture f;
    Vector<float> three;
    for (const float number : {1.0F, 2.0F, 3.0F})
        three.append(number);
    f.device.write(VariableKind::Config, "pos0", three);
    QVERIFY(f.isTaken(1));
    f.device.write(VariableKind::Config, "pos0", Vector<float>());
    QVERIFY(f.isTaken(2));
    f.stack().undo();
    QVERIFY(f.config<Vector<float>>("pos0") == three);
}

void PositionHistoryTest::a_new_change_ends_what_could_be_redone()
{
    Fixture f;
    f.store({position("Home", 1, 2)});
    QVERIFY(f.isTaken(1));
    f.stack().undo();
    f.store({position("Rest", 5, 6)});
    QTRY_COMPARE_WITH_TIMEOUT(f.stack().canRedo(), false, patience);
    f.stack().undo();
    QCOMPARE(f.inWords(), QString("Home 90 30, Grasp 120.5 20"));
}

void PositionHistoryTest::other_settings_are_left_alone()
{
    Fixture f;
    QVERIFY(f.connect());
    f.store({position("Home", 1, 2)});
    QVERIFY(f.isTaken(1));
    f.device.write(VariableKind::Config, "ip_address", std::string("10.0.0.1"));
    f.stack().undo();
    QCOMPARE(f.config<std::string>("ip_address"), std::string("10.0.0.1"));
    QVERIFY(f.settle());
    QCOMPARE(f.stack().count(), 1);
}

TEST_WITH_WINDOWS(PositionHistoryTest)

} // namespace position_history_test

#include "PositionHistoryTest.moc"
