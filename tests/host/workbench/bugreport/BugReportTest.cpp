// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/workbench/window/FullWindow.h"

#include "host/workbench/bugreport/BugReport.h"
#include "host/workbench/bugreport/BugReportDialog.h"
#include "host/workbench/bugreport/ReportArchive.h"

#include <QDir>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

namespace bug_report_test {

using full_window::FullWindow;
using host::workbench::bugreport::BugReport;
using host::workbench::bugreport::BugReportDialog;
using host::workbench::bugreport::Part;
using host::workbench::bugreport::ReportArchive;
using Variant = olm::core::variant::Variant;

namespace {

constexpr const char* host = "secret.example";

/// A window whose device knows an address, and a report on it.
struct Case
{
    Case()
    {
        window.device.write(plugin::gui::VariableKind::Config, "ipAddress", std::string(host));
        window.device.events().add(
            {{}, "base", QString("%1 does not answer").arg(QLatin1String(host))});
    }

    BugReport report() { return {window.plugin, {&window.device}, window.settings.path()}; }

    QString content(const QString& name)
    {
        const BugReport all = report();
        for (const Part& part : all.parts()) {
            if (part.name == name)
                return QString::fromUtf8(part.content);
        }
        return {};
    }

    FullWindow window;
};

QString run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(patience);
    return QString::fromLocal8Bit(process.readAllStandardOutput());
}

} // namespace

/// BugReport, its dialog and its file.
class BugReportTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_has_versions_plugin_events_calls_and_settings();
    void no_address_is_in_it();
    void the_dialog_shows_each_file_and_leaves_out_what_is_not_checked();
    void the_archive_has_each_file_in_a_folder_of_its_name();
    void an_archive_that_cannot_be_written_is_named();
};

void BugReportTest::it_has_versions_plugin_events_calls_and_settings()
{
    Case c;
    QVERIFY(c.content("versions.txt").contains(QString("Qt ") + qVersion()));
    const QString plugin = c.content("plugin.txt");
    for (const char* words : {"libdevice_quandrel_gui.so", "vendor: OLM GmbH",
                              "SHA-256: ", "needs: libplugin_framework.so."})
        QVERIFY2(plugin.contains(words), qPrintable(plugin));
    QVERIFY(c.content("Quandrel/events.csv").contains("does not answer"));
    QVERIFY(c.content("Quandrel/traffic.csv").contains("registerConfigVariable"));
    QVERIFY(c.content("Quandrel/state.txt").contains("connection: -1"));
    QVERIFY(c.content("settings/Quandrel.json").contains("ipAddress"));
}

void BugReportTest::no_address_is_in_it()
{
    Case c;
    const BugReport report = c.report();
    for (const Part& part : report.parts())
        QVERIFY2(!part.content.contains(host), qPrintable(part.name));
    QVERIFY(c.content("Quandrel/events.csv").contains("(address) does not answer"));
}

void BugReportTest::the_dialog_shows_each_file_and_leaves_out_what_is_not_checked()
{
    Case c;
    const BugReport report = c.report();
    BugReportDialog dialog(report, nullptr);
    auto& list = *dialog.findChild<QTreeWidget*>("files");
    const auto& content = *dialog.findChild<QPlainTextEdit*>("content");
    QCOMPARE(list.topLevelItemCount(), int(report.parts().size()));
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        const Part& part = report.parts().at(i);
        list.setCurrentItem(list.topLevelItem(i));
        QCOMPARE(list.topLevelItem(i)->text(0), part.name);
        QCOMPARE(list.topLevelItem(i)->text(1), QLocale().formattedDataSize(part.content.size()));
        const QString shown = QString::fromUtf8(part.content).remove('\r');
        QCOMPARE(content.toPlainText(), shown);
    }
    list.topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(dialog.chosen().size(), report.parts().size() - 1);
    QCOMPARE(dialog.chosen().first().name, report.parts().at(1).name);
    for (int i = 0; i < list.topLevelItemCount(); ++i)
        list.topLevelItem(i)->setCheckState(0, Qt::Unchecked);
    QVERIFY(!dialog.findChild<QPushButton*>("save")->isEnabled());
}

void BugReportTest::the_archive_has_each_file_in_a_folder_of_its_name()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("my report.tar.gz");
    QCOMPARE(ReportArchive::write(file, {{"a.txt", "first\n"}, {"b/c.txt", "second\n"}}),
             QString());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("my report.tar.gz"));
    QCOMPARE(
        run("tar", {"--extract", "--gzip", "--to-stdout", "--file", file, "./my report/b/c.txt"}),
        QString("second\n"));
    QCOMPARE(
        run("tar", {"--extract", "--gzip", "--to-stdout", "--file", file, "./my report/a.txt"}),
        QString("first\n"));
}

void BugReportTest::an_archive_that_cannot_be_written_is_named()
{
    const QString problem = ReportArchive::write("/no/such/folder/a.tar.gz", {{"a.txt", "a"}});
    QVERIFY2(problem.startsWith("/no/such/folder/a.tar.gz was not written: "), qPrintable(problem));
}

TEST_WITH_WINDOWS(BugReportTest)

} // namespace bug_report_test

#include "BugReportTest.moc"
