// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/ProgramRun.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QtTest>

#include <csignal>

namespace program_test {

using namespace program_run;

namespace {

Result run(const QStringList& arguments)
{
    return program_run::run(WORKBENCH_FILE, arguments);
}

Result run(const QStringList& arguments, const QProcessEnvironment& environment)
{
    return program_run::run(WORKBENCH_FILE, arguments, environment);
}

} // namespace

/// The program device-workbench, started as a person starts it.
class ProgramTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void help_and_version_need_no_display();
    void a_mistake_on_the_command_line_is_named_with_status_2();
    void a_recording_that_cannot_be_replayed_is_named_with_status_1();
    void the_language_is_the_systems();
    void without_a_display_the_program_says_so();
    void a_plugin_that_cannot_be_loaded_is_named_on_the_standard_error();
    void a_bug_report_is_saved_without_a_display_and_what_is_in_it_is_listed();
    void a_crash_names_the_plugins_function();
    void a_signal_ends_the_program_cleanly_data();
    void a_signal_ends_the_program_cleanly();
};

void ProgramTest::help_and_version_need_no_display()
{
    const QTemporaryDir home;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);

    const Result help = run({"--help"}, environment);
    QCOMPARE(help.status, 0);
    QVERIFY2(help.out.contains("--plugin FILE"), qPrintable(help.out));
    const Result version = run({"--version"}, environment);
    QCOMPARE(version.status, 0);
    QCOMPARE(version.out, QString("device-workbench " WORKBENCH_VERSION "\n"));
}

void ProgramTest::a_mistake_on_the_command_line_is_named_with_status_2()
{
    for (const char* argument :
         {"--colour", "stray", "--address=robot:99999", "--device=", "--language=fr"}) {
        const Result result = run({argument});
        QCOMPARE(result.status, 2);
        QCOMPARE(result.out, QString());
        const QString named = QString(argument).section('=', -1, -1, QString::SectionSkipEmpty);
        QVERIFY2(result.err.startsWith("device-workbench: "), qPrintable(result.err));
        QVERIFY2(result.err.contains(QString(named).remove("--")), qPrintable(result.err));
        QVERIFY2(result.err.endsWith("\nTry 'device-workbench --help'.\n"), qPrintable(result.err));
    }
}

void ProgramTest::a_recording_that_cannot_be_replayed_is_named_with_status_1()
{
    QTemporaryFile noScans;
    QVERIFY(noScans.open());
    noScans.write("no scan at all\n");
    noScans.close();
    for (const QString& file : {noScans.fileName(), QString("/no/such.log")}) {
        for (const char* option : {"--laser-log", "--replay"}) {
            const Result result = run({option, file});
            QCOMPARE(result.status, 1);
            QVERIFY2(result.err.contains(file), qPrintable(result.err));
        }
    }
}

void ProgramTest::the_language_is_the_systems()
{
    const QTemporaryDir home;
    QProcessEnvironment german = environmentIn(home);
    german.insert("LC_ALL", "de_DE.UTF-8");
    const Result system = run({"--colour"}, german);
    QVERIFY2(system.err.contains("Versuchen Sie „device-workbench --help“."),
             qPrintable(system.err));
}

void ProgramTest::without_a_display_the_program_says_so()
{
    const QTemporaryDir home;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);
    const Result result = run({"--no-robot"}, environment);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.contains("There is no display"), qPrintable(result.err));
}

void ProgramTest::a_plugin_that_cannot_be_loaded_is_named_on_the_standard_error()
{
    const QTemporaryDir home;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    program.start(WORKBENCH_FILE, {"--no-robot", "--plugin", "/no/such.so"});
    QString error;
    const auto isNamed = [&] {
        error += QString::fromLocal8Bit(program.readAllStandardError());
        return error.contains("/no/such.so");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isNamed(), runPatience);
    QVERIFY2(error.contains("device-workbench: The plugin was not found\n"), qPrintable(error));
    QVERIFY(program.state() == QProcess::Running); // with the card in the window
    program.terminate();
    QVERIFY(program.waitForFinished(runPatience));
}

void ProgramTest::a_bug_report_is_saved_without_a_display_and_what_is_in_it_is_listed()
{
    const QTemporaryDir home;
    QProcessEnvironment environment = environmentIn(home);
    removeDisplay(environment);
    const QString file = home.filePath("report.tar.gz");
    const Result result =
        run({"--no-robot", "--language", "en", "--bug-report", file}, environment);
    QVERIFY2(result.status == 0, qPrintable(result.err));
    QVERIFY2(result.out.startsWith("versions.txt: "), qPrintable(result.out));
    QVERIFY2(result.out.endsWith('\n' + file + '\n'), qPrintable(result.out));
    QVERIFY(QFileInfo(file).size() > 0);

    const QString nowhere = "/no/such/folder/report.tar.gz";
    const Result failed =
        run({"--no-robot", "--language", "en", "--bug-report", nowhere}, environment);
    QCOMPARE(failed.status, 1);
    QVERIFY2(failed.err.contains(nowhere + " was not written: "), qPrintable(failed.err));
}

void ProgramTest::a_crash_names_the_plugins_function()
{
    const Result result = run({"--no-robot", "--plugin", TEST_PLUGIN_FOLDER "/CrashingDialog.so"});
    QVERIFY(result.status != 0);
    QVERIFY2(result.err.contains("device-workbench: crashed in the plugin's function translate.\n"),
             qPrintable(result.err));
}

void ProgramTest::a_signal_ends_the_program_cleanly_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void ProgramTest::a_signal_ends_the_program_cleanly()
{
    QFETCH(int, number);
    const QTemporaryDir home;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    const QString bag = home.filePath("first.bag");
    program.start(WORKBENCH_FILE, {"--record", bag});
    QVERIFY(program.waitForStarted(runPatience));

    // The kernel knows when the program has taken the signal over.
    const auto isCaught = [&] {
        QFile status(QString("/proc/%1/status").arg(program.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return false;
        const QString caught = QString::fromLatin1(status.readAll()).section("SigCgt:", 1);
        return bool(
            (caught.section('\n', 0, 0).trimmed().toULongLong(nullptr, 16) >> (number - 1)) & 1);
    };
    QTRY_VERIFY_WITH_TIMEOUT(isCaught(), runPatience);
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), number), 0);
    QVERIFY(program.waitForFinished(runPatience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QFile recording(bag);
    QVERIFY(recording.open(QIODevice::ReadOnly));
    QVERIFY(recording.readAll().contains("loadDeviceWidget")); // from the beginning
}

TEST_WITHOUT_WINDOWS(ProgramTest)

} // namespace program_test

#include "ProgramTest.moc"
