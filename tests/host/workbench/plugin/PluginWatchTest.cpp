// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/plugin/PluginWatch.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <cstdio>

namespace plugin_watch_test {

using host::workbench::plugin::PluginWatch;

namespace {

constexpr std::chrono::milliseconds pause{50};

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

} // namespace

/// PluginWatch, with what compilers, linkers and installers do to a file.
class PluginWatchTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_file_that_is_written_anew_is_noticed_each_time();
    void a_file_that_is_removed_is_noticed_when_another_takes_its_place();
    void a_file_that_is_renamed_into_place_is_noticed();
    void a_file_that_was_missing_is_noticed();
    void other_files_of_the_folder_do_not_count();
    void a_folder_that_is_missing_is_no_error();

private:
    const QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath("plugin.so");
};

void PluginWatchTest::a_file_that_is_written_anew_is_noticed_each_time()
{
    write(m_file, "first");
    const PluginWatch watch(m_file, pause);
    const QSignalSpy rebuilt(&watch, &PluginWatch::rebuilt);
    write(m_file, "second one");
    QTRY_COMPARE_WITH_TIMEOUT(rebuilt.size(), 1, patience);
    write(m_file, "the third one");
    QTRY_COMPARE_WITH_TIMEOUT(rebuilt.size(), 2, patience);
}

void PluginWatchTest::a_file_that_is_removed_is_noticed_when_another_takes_its_place()
{
    write(m_file, "first");
    const PluginWatch watch(m_file, pause);
    QSignalSpy rebuilt(&watch, &PluginWatch::rebuilt);
    QVERIFY(QFile::remove(m_file));
    QTimer::singleShot(4 * pause, &watch, [this] { write(m_file, "second one"); });
    QVERIFY(rebuilt.wait(patience));
    QCOMPARE(QFile(m_file).size(), 10); // not when it was removed
    QCOMPARE(rebuilt.size(), 1);
}

void PluginWatchTest::a_file_that_is_renamed_into_place_is_noticed()
{
    write(m_file, "first");
    const PluginWatch watch(m_file, pause);
    const QSignalSpy rebuilt(&watch, &PluginWatch::rebuilt);
    const QString fresh = m_folder.filePath("fresh");
    write(fresh, "second one");
    QCOMPARE(std::rename(QFile::encodeName(fresh), QFile::encodeName(m_file)), 0);
    QTRY_COMPARE_WITH_TIMEOUT(rebuilt.size(), 1, patience);
}

void PluginWatchTest::a_file_that_was_missing_is_noticed()
{
    QFile::remove(m_file);
    const PluginWatch watch(m_file, pause);
    const QSignalSpy rebuilt(&watch, &PluginWatch::rebuilt);
    write(m_file, "first");
    QTRY_COMPARE_WITH_TIMEOUT(rebuilt.size(), 1, patience);
}

void PluginWatchTest::other_files_of_the_folder_do_not_count()
{
    write(m_file, "first");
    const PluginWatch watch(m_file, pause);
    QSignalSpy rebuilt(&watch, &PluginWatch::rebuilt);
    write(m_folder.filePath("other"), "anything");
    QTimer::singleShot(4 * pause, &watch, [this] { write(m_file, "second one"); });
    QVERIFY(rebuilt.wait(patience));
    QCOMPARE(QFile(m_file).size(), 10);
    QCOMPARE(rebuilt.size(), 1);
}

void PluginWatchTest::a_folder_that_is_missing_is_no_error()
{
    const PluginWatch watch("/no/such/folder/plugin.so", pause); // Qt would warn of it
}

TEST_WITHOUT_WINDOWS(PluginWatchTest)

} // namespace plugin_watch_test

#include "PluginWatchTest.moc"
