// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/ProgramRun.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTcpServer>
#include <QXmlStreamReader>
#include <QtTest>

#include <csignal>

namespace script_run_test {

using namespace program_run;

namespace {

/// A script in a folder of its own, run by the program.
struct Script
{
    explicit Script(const QString& text)
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            qFatal("no script can be written");
    }

    QString path() const { return folder.filePath("a.script"); }

    Result run(const QStringList& arguments = {}) const
    {
        return program_run::run(WORKBENCH_FILE, QStringList{"--script", path(), "--output",
                                                            folder.path(), "--language", "en"} +
                                                    arguments);
    }

    const QTemporaryDir folder;
};

/// The example of the page on scripts.
QString example()
{
    QFile page(HELP_FOLDER "/../scripts.md");
    if (!page.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(page.readAll());
    QString lines;
    for (const QString& line : text.mid(text.indexOf("    # Switches")).split('\n')) {
        if (!line.isEmpty() && !line.startsWith("    "))
            break;
        lines += line + '\n';
    }
    return lines;
}

} // namespace

/// The program with --script: what it does, what it says, and how it ends.
class ScriptRunTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_example_of_the_page_passes();
    void a_window_is_opened_anew_and_a_failure_ends_it_with_status_1();
    void a_wrong_script_is_not_begun();
    void a_script_that_cannot_be_read_is_wrong();
    void the_report_has_a_case_for_each_step();
    void a_signal_ends_it_as_a_failure();
};

void ScriptRunTest::the_example_of_the_page_passes()
{
    const Script script(example());
    const Result result = script.run();
    QVERIFY2(result.status == 0, qPrintable(result.err));
    QCOMPARE(result.out, script.folder.filePath("base.png\n"));
    QVERIFY(!QImage(script.folder.filePath("base.png")).isNull());
}

void ScriptRunTest::a_window_is_opened_anew_and_a_failure_ends_it_with_status_1()
{
    const Script script("restart --device Left --device Right\n"
                        "device Right\n"
                        "click Nothing in toolBar within 0.1\n"
                        "picture after.png\n");
    const Result result = script.run({"--no-robot"});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.err.startsWith("device-workbench: a.script:3: click Nothing in toolBar within "
                                   "0.1: there is no control \"Nothing\" in sight; there are: "),
             qPrintable(result.err));
    QCOMPARE(result.out, QString());

    const Result scaled = Script("restart --scale 2 within 1\n").run({"--no-robot"});
    QCOMPARE(scaled.status, 1);
    QVERIFY2(scaled.err.contains("--scale can be given on the command line only"),
             qPrintable(scaled.err));
}

void ScriptRunTest::a_wrong_script_is_not_begun()
{
    const Script script("picture a.png\njump\npress\n");
    const Result result = script.run();
    QCOMPARE(result.status, 2);
    QCOMPARE(result.out, QString());
    const QStringList lines = result.err.split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines.at(0).startsWith("device-workbench: a.script:2: \"jump\" is not a command"),
             qPrintable(result.err));
    QVERIFY2(lines.at(1).startsWith("device-workbench: a.script:3: expected: press KEY"),
             qPrintable(result.err));
}

void ScriptRunTest::a_script_that_cannot_be_read_is_wrong()
{
    for (const char* file : {"/no/such.script", "/dev/zero", "/"}) {
        const Result result = run(WORKBENCH_FILE, {"--script", file, "--language", "en"});
        QCOMPARE(result.status, 2);
        QCOMPARE(result.err, QString("device-workbench: %1 cannot be read\n").arg(file));
    }
}

void ScriptRunTest::the_report_has_a_case_for_each_step()
{
    const Script script("step first\npicture a.png\nstep \"second < third\"\n"
                        "click Nothing within 0.1\nstep last\n");
    const QString path = script.folder.filePath("report.xml");
    QCOMPARE(script.run({"--no-robot", "--junit", path}).status, 1);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    QStringList found;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        QStringList words{reader.name().toString()};
        for (const char* name : {"name", "tests", "failures", "skipped"}) {
            if (attributes.hasAttribute(name))
                words << attributes.value(name).toString();
        }
        if (attributes.hasAttribute("message"))
            words << attributes.value("message").toString().left(10);
        found << words.join(' ');
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    const QStringList expected{
        "testsuite a.script 3 1 1", "testcase first", "testcase second < third",
        "failure a.script:4",       "testcase last",  "skipped"};
    QCOMPARE(found, expected);
}

void ScriptRunTest::a_signal_ends_it_as_a_failure()
{
    QTcpServer silent; // accepts and says nothing
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const Script script(QString("connect 127.0.0.1:%1\npicture a.png\nwait for connected\n")
                            .arg(silent.serverPort()));
    const QTemporaryDir home;
    QProcess program;
    program.setProcessEnvironment(environmentIn(home));
    program.start(WORKBENCH_FILE, {"--no-robot", "--script", script.path(), "--output",
                                   script.folder.path(), "--language", "en"});
    QByteArray printed;
    const auto isConnecting = [&] {
        printed += program.readAllStandardOutput();
        return printed.contains("a.png");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isConnecting(), runPatience);
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    QVERIFY(program.waitForFinished(runPatience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 1);
    const QByteArray error = program.readAllStandardError();
    QVERIFY2(error.contains("a.script:3: wait for connected: it was interrupted"),
             error.constData());
}

TEST_WITHOUT_WINDOWS(ScriptRunTest)

} // namespace script_run_test

#include "ScriptRunTest.moc"
