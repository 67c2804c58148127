// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/ProgramRun.h"
#include "tests/host/workbench/replay/RecordedPlugin.h"

#include "host/workbench/replay/Assertion.h"

#include <QtTest>

namespace assertion_test {

using host::loading::PluginLoader;
using host::workbench::replay::Assertion;

/// A recording of the plugin at work as its test.
class AssertionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_plugin_does_the_same_again();
    void a_recording_that_began_later_is_played_too();
    void another_plugin_does_not_do_the_same();
    void a_plugin_that_cannot_be_loaded_is_no_difference();
    void the_program_says_it_by_its_exit_status();
};

void AssertionTest::the_plugin_does_the_same_again()
{
    RecordedPlugin f;
    QVERIFY(f.record(true));
    const Assertion assertion(f.file, f.plugin);
    QVERIFY2(assertion.isSame(), qPrintable(assertion.words().join('\n')));
    const QRegularExpression words(
        "^The plugin did the same: (\\d+) calls played, (\\d+) calls compared\\.$");
    const auto found = words.match(assertion.words().value(0));
    QVERIFY2(found.hasMatch(), qPrintable(assertion.words().join('\n')));
    QVERIFY(found.captured(1).toInt() > 30);
    QVERIFY(found.captured(2).toInt() > 100);
}

void AssertionTest::a_recording_that_began_later_is_played_too()
{
    RecordedPlugin f;
    QVERIFY(f.record(false));
    const Assertion assertion(f.file, f.plugin);
    QVERIFY2(assertion.isSame(), qPrintable(assertion.words().join('\n')));
}

void AssertionTest::another_plugin_does_not_do_the_same()
{
    RecordedPlugin f;
    QVERIFY(f.record(true));
    const Assertion assertion(f.file, PluginLoader(TEST_PLUGIN_FOLDER "/TwoWidgets.so"));
    QVERIFY(!assertion.isSame());
    QVERIFY2(assertion.words().value(0).startsWith("Call 0, "),
             qPrintable(assertion.words().join('\n')));
}

void AssertionTest::a_plugin_that_cannot_be_loaded_is_no_difference()
{
    RecordedPlugin f;
    const Assertion assertion(f.file, PluginLoader(TEST_PLUGIN_FOLDER "/NoFactory.so"));
    QVERIFY(!assertion.isSame());
    QVERIFY(assertion.words().value(0).contains("NoFactory.so"));
}

void AssertionTest::the_program_says_it_by_its_exit_status()
{
    RecordedPlugin f;
    QVERIFY(f.record(true));
    const auto same = program_run::run(WORKBENCH_FILE, {"--replay", f.file, "--assert"});
    QVERIFY2(same.status == 0, qPrintable(same.err));
    QVERIFY(same.out.startsWith("The plugin did the same: "));
    const auto other = program_run::run(WORKBENCH_FILE, {"--replay", f.file, "--assert", "--plugin",
                                                         TEST_PLUGIN_FOLDER "/TwoWidgets.so"});
    QCOMPARE(other.status, 1);
    QVERIFY2(other.err.contains("Call 0, "), qPrintable(other.err));
}

TEST_WITH_WINDOWS(AssertionTest)

} // namespace assertion_test

#include "AssertionTest.moc"
