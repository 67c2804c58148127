// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Defects.h"
#include "TestCase.h"

#include <QElapsedTimer>
#include <QXmlStreamReader>
#include <QtTest>

namespace check_program_test {

using program_run::Result;

/// The program device-plugin-check: what it is told and what it tells.
class CheckProgramTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_mistake_on_the_command_line_is_named_with_status_2_data();
    void a_mistake_on_the_command_line_is_named_with_status_2();
    void the_list_has_every_test_with_its_level();
    void the_status_tells_how_the_run_ended_data();
    void the_status_tells_how_the_run_ended();
    void the_last_line_has_verdict_counts_skipped_tests_and_seed();
    void the_report_for_programs_has_every_test();
    void the_report_for_servers_is_xml_with_the_same_counts();
    void a_report_that_cannot_be_written_is_told();
    void what_a_person_did_to_make_it_crash_can_be_done_again();
    void in_a_file_dialog_nothing_is_done();
    void a_script_of_the_workbench_shows_what_a_person_did();
    void how_much_a_person_used_is_told_where_all_is_well();
    void a_recording_is_played_into_the_plugin();
    void a_variable_that_is_spared_gets_no_bad_values();
    void what_a_hanging_test_started_ends_with_it();
};

void CheckProgramTest::a_mistake_on_the_command_line_is_named_with_status_2_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    const QString sound = defects::brokenPlugin("sound");
    QTest::newRow("no file") << QStringList() << "FILE is missing: name the plugin";
    QTest::newRow("no such file") << QStringList("/no/such.so")
                                  << "/no/such.so: there is no such file";
    QTest::newRow("two files") << QStringList{sound, "another"}
                               << "unexpected argument \"another\"";
    QTest::newRow("level") << QStringList{sound, "--level", "11"}
                           << "--level: \"11\" is not a number from 1 to 10";
    QTest::newRow("seed") << QStringList{sound, "--seed", "x"}
                          << "--seed: \"x\" is not a number from 0";
    QTest::newRow("effort") << QStringList{sound, "--effort", "0"}
                            << "--effort: \"0\" is not a number from 1 to 100";
    QTest::newRow("timeout") << QStringList{sound, "--timeout", "0"} << "--timeout: \"0\"";
    QTest::newRow("empty") << QStringList{sound, "--widget="} << "--widget: the value is empty";
    QTest::newRow("actions") << QStringList{sound, "--reproduce", "/no/such"}
                             << "--reproduce: /no/such is not a list of actions";
    QTest::newRow("recording") << QStringList{sound, "--recording", "/no/such"}
                               << "--recording: /no/such: there is no such file";
    QTest::newRow("option") << QStringList{sound, "--levels"} << "Unknown option 'levels'.";
}

void CheckProgramTest::a_mistake_on_the_command_line_is_named_with_status_2()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, words);
    const Result result = program_run::run(CHECK_FILE, arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.err.startsWith("device-plugin-check: " + words), qPrintable(result.err));
    QVERIFY(result.err.endsWith("Try 'device-plugin-check --help'.\n"));
    QCOMPARE(result.out, QString());
}

void CheckProgramTest::the_list_has_every_test_with_its_level()
{
    const Result all = program_run::run(CHECK_FILE, {"--list"});
    QCOMPARE(all.status, 0);
    QVERIFY2(all.out.startsWith(" 1  load-now-local "), qPrintable(all.out));
    QVERIFY2(all.out.contains("\n 3  write-back "), qPrintable(all.out));
    const Result some = program_run::run(
        CHECK_FILE, {"--list", "--level", "1", "--only", "load*", "--skip", "*lazy*"});
    QCOMPARE(some.out.count('\n'), 3);
}

void CheckProgramTest::the_status_tells_how_the_run_ended_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QString>("test");
    QTest::addColumn<int>("status");
    QTest::newRow("passed") << "sound"
                            << "new-widget" << 0;
    QTest::newRow("failed") << "has-parent"
                            << "new-widget" << 1;
    QTest::newRow("crashed") << "crashes-in-destructor"
                             << "new-widget" << 3;
    QTest::newRow("timed out") << "never-returns"
                               << "orders" << 4;
    QTest::newRow("nothing ran") << "sound"
                                 << "no-such-test" << 5;
}

void CheckProgramTest::the_status_tells_how_the_run_ended()
{
    QFETCH(QString, plugin);
    QFETCH(QString, test);
    QFETCH(int, status);
    const Result result = program_run::run(
        CHECK_FILE, {"--only", test, "--timeout", "1", defects::brokenPlugin(plugin)});
    QVERIFY2(result.status == status, qPrintable(result.out + result.err));
    QCOMPARE(result.err, QString());
    QVERIFY2(
        result.out.split('\n').at(result.out.count('\n') - 1).startsWith(QTest::currentDataTag()),
        qPrintable(result.out));
}

void CheckProgramTest::the_last_line_has_verdict_counts_skipped_tests_and_seed()
{
    const Result result =
        program_run::run(CHECK_FILE, {"--seed", "7", "--only", "load-*", "--skip", "load-time",
                                      "--only", "info", defects::brokenPlugin("no-vendor")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.out.startsWith("seed 7\n"), qPrintable(result.out));
    QVERIFY2(
        result.out.endsWith("\nfailed: no-vendor.so: 4 passed, 1 failed, 1 skipped (load-time); "
                            "level 5, seed 7\n"),
        qPrintable(result.out));
}

void CheckProgramTest::the_report_for_programs_has_every_test()
{
    QJsonObject report;
    const QString file = defects::brokenPlugin("has-parent");
    const Result result = defects::check(
        {"--only", "new-widget", "--only", "qt-version", "--level", "2", file}, &report);
    QCOMPARE(result.status, 1);
    QCOMPARE(report.value("plugin").toString(), file);
    QCOMPARE(report.value("seed").toInt(), 1);
    QCOMPARE(report.value("level").toInt(), 2);
    QCOMPARE(report.value("verdict").toString(), QString("failed"));
    const QJsonArray tests = report.value("tests").toArray();
    QCOMPARE(tests.size(), 2);
    const QJsonObject first = tests.at(0).toObject();
    QCOMPARE(first.value("name").toString(), QString("qt-version"));
    QCOMPARE(first.value("level").toInt(), 1);
    QCOMPARE(first.value("widget").toString(), QString());
    QCOMPARE(first.value("status").toString(), QString("passed"));
    QCOMPARE(first.value("message").toString(), QString());
    QVERIFY(first.value("seconds").toDouble() > 0);
    const QJsonObject second = tests.at(1).toObject();
    QCOMPARE(second.value("widget").toString(), QString("dialog"));
    QCOMPARE(second.value("status").toString(), QString("failed"));
}

void CheckProgramTest::the_report_for_servers_is_xml_with_the_same_counts()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("report.xml");
    program_run::run(CHECK_FILE, {"--junit", name, "--only", "new-widget", "--only", "load-*",
                                  "--skip", "load-lazy-*", defects::brokenPlugin("has-parent")});
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QVERIFY(xml.readNextStartElement());
    const QXmlStreamAttributes counts = xml.attributes();
    QCOMPARE(counts.value("tests").toString(), QString("6"));
    QCOMPARE(counts.value("failures").toString(), QString("1"));
    QCOMPARE(counts.value("errors").toString(), QString("0"));
    QCOMPARE(counts.value("skipped").toString(), QString("2"));
    QStringList failed;
    QString test;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("testcase"))
            test = xml.attributes().value("name").toString();
        if (xml.isStartElement() && xml.name() == QLatin1String("failure"))
            failed << test + ": " + xml.attributes().value("message").toString();
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(failed.size(), 1);
    QVERIFY2(failed.first().startsWith("new-widget (dialog): gives a widget that has a parent"),
             qPrintable(failed.first()));
}

void CheckProgramTest::a_report_that_cannot_be_written_is_told()
{
    const Result result =
        program_run::run(CHECK_FILE, {"--json", "/no/such/folder/x.json", "--only", "info",
                                      defects::brokenPlugin("sound")});
    QCOMPARE(result.status, 2);
    QVERIFY2(result.err.contains("/no/such/folder/x.json cannot be written"),
             qPrintable(result.err));
}

void CheckProgramTest::what_a_person_did_to_make_it_crash_can_be_done_again()
{
    const QTemporaryDir folder;
    const auto run = [&](const QStringList& arguments) {
        return program_run::run(CHECK_FILE, arguments, program_run::environmentIn(folder),
                                folder.path());
    };
    const QString plugin = defects::brokenPlugin("crashes-with-power-on");
    run({"--seed", "3", "--level", "6", "--only", "monkey", plugin});
    const QString file = "crashes-with-power-on-dialog-3.actions";
    QFile actions(folder.filePath(file));
    QVERIFY(actions.open(QIODevice::ReadOnly));
    QCOMPARE(actions.readAll().count('\n'), 3); // the widget, and two actions

    const Result again = run({"--reproduce", file, plugin});
    QVERIFY2(again.status == 3, qPrintable(again.out));
    const Result sound = run({"--reproduce", file, defects::brokenPlugin("sound")});
    QVERIFY2(sound.status == 0, qPrintable(sound.out));
}

void CheckProgramTest::in_a_file_dialog_nothing_is_done()
{
    const QTemporaryDir folder;
    QFile actions(folder.filePath("save.actions"));
    QVERIFY(actions.open(QIODevice::WriteOnly));
    actions.write(R"({"widget":"dialog"}
["click","QTabWidget/QStackedWidget/QWidget/QPushButton","5,5"]
["press","","x"]
["press","","Return"]
)");
    actions.close();
    const Result result =
        program_run::run(CHECK_FILE, {"--reproduce", actions.fileName(),
                                      defects::brokenPlugin("crashes-on-a-chosen-file")});
    QVERIFY2(result.status == 0, qPrintable(result.out));
}

void CheckProgramTest::a_script_of_the_workbench_shows_what_a_person_did()
{
    const QTemporaryDir folder;
    const auto write = [&](const QString& name, const char* text) {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(text) > 0;
    };
    QVERIFY(write("a.actions", R"({"widget":"dialog"}
["click","QTabWidget/QStackedWidget/QWidget/QCheckBox","8,8"]
["press","","Space"]
)"));
    QVERIFY(write("none.actions", R"({"widget":"dialog"}
["click","QDial","8,8"]
)"));
    QVERIFY(write("good.script", "actions $folder/a.actions\nexpect write power true\n"
                                 "expect write power false\n"));
    QVERIFY(write("bad.script", "actions $folder/none.actions within 0.1\n"));
    QVERIFY(write("wrong.script", "actions $folder/good.script\n"));
    const auto run = [&](const QString& script) {
        return program_run::run(WORKBENCH_FILE,
                                {"--no-robot", "--plugin", defects::brokenPlugin("sound"),
                                 "--script", folder.filePath(script)},
                                program_run::environmentIn(folder), folder.path());
    };
    const Result good = run("good.script");
    QVERIFY2(good.status == 0, qPrintable(good.err));
    const Result bad = run("bad.script");
    QVERIFY2(bad.err.contains("its control is not in sight: click QDial 8,8"), qPrintable(bad.err));
    const Result wrong = run("wrong.script");
    QVERIFY2(wrong.err.contains("no list of actions"), qPrintable(wrong.err));
}

void CheckProgramTest::how_much_a_person_used_is_told_where_all_is_well()
{
    QJsonObject report;
    const Result result = defects::check(
        {"--level", "6", "--only", "monkey", "--effort", "1", defects::brokenPlugin("sound")},
        &report);
    const QRegularExpression words(
        "^([1-9]\\d*) of its \\d+ controls, \\d+ of its \\d+ actions and "
        "\\d+ of its \\d+ cells were used, in 1000 actions$");
    const QString message =
        report.value("tests").toArray().at(0).toObject().value("message").toString();
    QVERIFY2(words.match(message).hasMatch(), qPrintable(message));
    QVERIFY2(result.out.contains("\nmonkey (dialog): passed: " + message), qPrintable(result.out));
}

void CheckProgramTest::a_recording_is_played_into_the_plugin()
{
    const QTemporaryDir folder;
    const auto run = [&](const QString& program, const QStringList& arguments) {
        return program_run::run(program, arguments, program_run::environmentIn(folder),
                                folder.path());
    };
    QFile script(folder.filePath("record.script"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("restart --record $output/lamp.bag\n"
                 "set config brightness 7 as int\nsend 0 hello\nclick Power\nstop recording\n");
    script.close();
    const Result recorded =
        run(WORKBENCH_FILE, {"--script", script.fileName(), "--output", folder.path(), "--device",
                             "Lamp", "--plugin", defects::brokenPlugin("sound")});
    QVERIFY2(recorded.status == 0, qPrintable(recorded.err));

    const auto play = [&](const QString& plugin) {
        return run(CHECK_FILE, {"--level", "10", "--only", "recording", "--recording",
                                folder.filePath("lamp.bag"), defects::brokenPlugin(plugin)});
    };
    const Result same = play("sound");
    QVERIFY2(same.status == 0, qPrintable(same.out));
    QVERIFY2(same.out.contains("recording: passed: The plugin did the same"), qPrintable(same.out));
    const Result other = play("forgets-text");
    QVERIFY2(other.status == 1, qPrintable(other.out));
    QVERIFY2(other.out.contains("recording: failed: does not do what it did when it was recorded"),
             qPrintable(other.out));
}

void CheckProgramTest::a_variable_that_is_spared_gets_no_bad_values()
{
    const QStringList arguments{"--only", "bad-updates",
                                defects::brokenPlugin("crashes-on-largest-number")};
    QCOMPARE(program_run::run(CHECK_FILE, arguments).status, 3);
    QCOMPARE(program_run::run(CHECK_FILE, QStringList{"--spare", "brightness"} + arguments).status,
             0);
}

void CheckProgramTest::what_a_hanging_test_started_ends_with_it()
{
    QElapsedTimer clock;
    clock.start();
    QJsonObject report;
    defects::check({"--only", "orders", "--only", "info", "--timeout", "1",
                    defects::brokenPlugin("never-returns")},
                   &report);
    const QJsonArray tests = report.value("tests").toArray();
    QCOMPARE(tests.size(), 2); // the run went on
    QCOMPARE(tests.at(1).toObject().value("status").toString(), QString("timed out"));
    QCOMPARE(report.value("verdict").toString(), QString("timed out"));
}

TEST_WITHOUT_WINDOWS(CheckProgramTest)

} // namespace check_program_test

#include "CheckProgramTest.moc"
