// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/recording/RecordButton.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QtTest>

namespace record_button_test {

using host::workbench::recording::RecordButton;

namespace {

struct Fixture
{
    QAction* action() const { return button->action(); }

    const QTemporaryDir folder;
    const QString file = folder.filePath("device.bag");
    const host::loading::PluginLoader plugin{DEVICE_PLUGIN_FILE};
    host::workbench::plugin::PluginEnvironment environment;
    host::device::Device device{"North/South 1", folder.path(), environment};
    host::workbench::window::Window window{plugin, environment};
    host::workbench::window::DeviceView& view = window.add(device, QString());
    RecordButton* const button = view.findChild<RecordButton*>();
};

} // namespace

/// The button that records a device, in its window.
class RecordButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_file_is_named_after_device_and_time();
    void it_shows_time_and_size_and_stops();
    void the_end_of_a_recording_is_shown_whoever_ended_it();
    void what_cannot_be_recorded_is_said();
    void a_window_that_is_closed_finishes_the_recording();
};

void RecordButtonTest::the_file_is_named_after_device_and_time()
{
    Fixture f;
    f.button->click();
    const auto* const dialog = f.button->findChild<QFileDialog*>();
    QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
    const QString name = QFileInfo(dialog->selectedFiles().value(0)).fileName();
    const QRegularExpression expected(
        "^North_South_1-\\d{4}-\\d\\d-\\d\\d-\\d\\d-\\d\\d-\\d\\d\\.bag$");
    QVERIFY2(expected.match(name).hasMatch(), qPrintable(name));
    QVERIFY(!f.device.recorder().isRecording());
}

void RecordButtonTest::it_shows_time_and_size_and_stops()
{
    Fixture f;
    QCOMPARE(f.action()->text(), QString("&Record…"));
    QCOMPARE(f.button->text(), QString("Record"));
    f.button->record(f.file);
    QVERIFY(f.device.recorder().isRecording());
    QCOMPARE(f.action()->text(), QString("Stop &recording"));
    const QRegularExpression progress("^0:\\d\\d:\\d\\d, [0-9.]+ (kB|KiB|bytes)$");
    QVERIFY2(progress.match(f.button->text()).hasMatch(), qPrintable(f.button->text()));
    const QString before = f.button->text();
    QTRY_VERIFY_WITH_TIMEOUT(f.button->text() != before, patience);
    f.action()->trigger();
    QVERIFY(!f.device.recorder().isRecording());
    QVERIFY(QFile::exists(f.file));
    QCOMPARE(f.button->text(), QString("Record"));
}

void RecordButtonTest::the_end_of_a_recording_is_shown_whoever_ended_it()
{
    Fixture f;
    f.button->record(f.file);
    f.device.recorder().stop();
    QCOMPARE(f.button->text(), QString("Record"));
}

void RecordButtonTest::what_cannot_be_recorded_is_said()
{
    Fixture f;
    QStringList problems;
    connect(f.button, &RecordButton::problem, this,
            [&](const QString& words) { problems += words; });
    f.button->record("/nowhere/a.bag");
    QCOMPARE(problems, QStringList("Nothing is recorded: /nowhere/a.bag.active: No such file or "
                                   "directory. Choose another file."));
}

void RecordButtonTest::a_window_that_is_closed_finishes_the_recording()
{
    Fixture f;
    f.window.show();
    f.button->record(f.file);
    f.window.close();
    QVERIFY(!f.device.recorder().isRecording());
    QVERIFY(QFile::exists(f.file));
}

TEST_WITH_WINDOWS(RecordButtonTest)

} // namespace record_button_test

#include "RecordButtonTest.moc"
