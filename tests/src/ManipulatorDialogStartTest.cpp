// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ManipulatorDialog.h"
#include "Positions.h"
#include "TestCase.h"
#include "Throws.h"

#include <QCheckBox>
#include <QtTest>

namespace manipulator_dialog_start_test {

/// What the arm's tab asks and tells its host while it is built.
class ManipulatorDialogStartTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_new_tab_reads_its_lines_and_registers_its_positions();
    void the_maximum_is_read_anew_for_every_position();
    void a_tab_without_room_for_positions_registers_the_count_alone_data();
    void a_tab_without_room_for_positions_registers_the_count_alone();
    void a_line_shows_what_the_device_held_at_first_data();
    void a_line_shows_what_the_device_held_at_first();
    void an_exception_of_the_host_leaves_nothing_behind();
};

void ManipulatorDialogStartTest::a_new_tab_reads_its_lines_and_registers_its_positions()
{
    FakeHost host;
    host.set(Kind::Config, "num_pos_max", 2);

    const ManipulatorDialog dialog(host, nullptr);

    QStringList calls = host.calls;
    QCOMPARE(changes(host), QStringList());
    // The table asks for its size whenever it likes.
    calls.removeAll("read config num_pos");
    QCOMPARE(calls, (QStringList{"read config line0_enabled", "read config line1_enabled",
                                 "read config line2_enabled", "help manipulator",
                                 "register config num_pos true", "read config num_pos_max",
                                 "register config pos0 true", "register config pos0_name true",
                                 "read config num_pos_max", "register config pos1 true",
                                 "register config pos1_name true", "read config num_pos_max"}));
}

void ManipulatorDialogStartTest::the_maximum_is_read_anew_for_every_position()
{
    // The device makes room while the second position is registered, once.
    class GrowingHost : public FakeHost
    {
    public:
        void registerConfigVariable(const char* name, bool on) override
        {
            FakeHost::registerConfigVariable(name, on);
            if (qstrcmp(name, "pos1") == 0)
                set(Kind::Config, "num_pos_max", 3);
        }
    };
    GrowingHost host;
    host.set(Kind::Config, "num_pos_max", 2);

    const ManipulatorDialog dialog(host, nullptr);

    QCOMPARE(host.calls.filter("register").size(), 7);
    QCOMPARE(host.calls.filter("register").last(), QString("register config pos2_name true"));
    QCOMPARE(host.calls.count("read config num_pos_max"), 4);
}

void ManipulatorDialogStartTest::a_tab_without_room_for_positions_registers_the_count_alone_data()
{
    QTest::addColumn<Variant>("maximum");
    QTest::newRow("missing") << Variant();
    QTest::newRow("none") << Variant(0);
    QTest::newRow("negative") << Variant(-4);
    QTest::newRow("text") << Variant(std::string("many"));
}

void ManipulatorDialogStartTest::a_tab_without_room_for_positions_registers_the_count_alone()
{
    QFETCH(Variant, maximum);
    FakeHost host;
    host.set(Kind::Config, "num_pos_max", maximum);

    const ManipulatorDialog dialog(host, nullptr);

    QCOMPARE(host.calls.filter("register"), QStringList("register config num_pos true"));
}

void ManipulatorDialogStartTest::a_line_shows_what_the_device_held_at_first_data()
{
    QTest::addColumn<Variant>("stored");
    QTest::addColumn<bool>("shown");
    QTest::newRow("on") << Variant(true) << true;
    QTest::newRow("off") << Variant(false) << false;
    QTest::newRow("missing") << Variant() << false;
    QTest::newRow("number") << Variant(1) << true;
    QTest::newRow("other text") << Variant(std::string("on")) << false;
    QTest::newRow("vector") << Variant(countedValues(1)) << false;
}

void ManipulatorDialogStartTest::a_line_shows_what_the_device_held_at_first()
{
    QFETCH(Variant, stored);
    QFETCH(bool, shown);
    const char* const names[] = {"line0_enabled", "line1_enabled", "line2_enabled"};
    for (int line = 0; line < 3; ++line) {
        FakeHost host;
        host.set(Kind::Config, names[line], stored);
        const ManipulatorDialog dialog(host, nullptr);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(dialog.findChildren<QCheckBox*>()[i]->isChecked(), shown && i == line);
        QCOMPARE(changes(host), QStringList());
    }
}

void ManipulatorDialogStartTest::an_exception_of_the_host_leaves_nothing_behind()
{
    FakeHost host;
    setPositions(host, 2, 2);
    QWidget window;
    window.show();
    delete new ManipulatorDialog(host, &window);
    QStringList calls = host.calls;
    calls.removeDuplicates();
    QVERIFY(calls.size() > 9);
    for (const QString& call : std::as_const(calls)) {
        if (call == "read config num_pos")
            continue; // asked for by Qt, which no exception passes through
        host.throwAt = call;
        QVERIFY(throws<std::runtime_error>([&] { new ManipulatorDialog(host, &window); }));
        QVERIFY(host.widgets.isEmpty());
        QVERIFY(window.findChildren<QWidget*>().isEmpty());
        QCoreApplication::processEvents();
    }
}

TEST_WITH_WINDOWS(ManipulatorDialogStartTest)

} // namespace manipulator_dialog_start_test

#include "ManipulatorDialogStartTest.moc"
