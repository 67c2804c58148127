// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/SettingsFile.h"

#include "FileSizeLimit.h"
#include "TestCase.h"

#include <QDir>
#include <QJsonDocument>
#include <QLockFile>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

#include <sys/stat.h>

namespace settings_file_test {

using host::device::variables::SettingsFile;

namespace {

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QJsonObject entriesOf(const SettingsFile& file)
{
    return QJsonDocument::fromJson(contentOf(file.fileName())).object();
}

/// The most memory that this process ever had, in MB.
qint64 peakMemory()
{
    const QList<QByteArray> lines = contentOf("/proc/self/status").split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toLongLong() / 1024;
    }
    return 0;
}

struct Settings : SettingsFile
{
    explicit Settings(const QTemporaryDir& folder)
        : SettingsFile(folder.path(), "robot", ".test", [](const QJsonObject& entries) {
              return entries.contains("wrong") ? QString("wrong entry") : QString();
          })
    {
    }
};

} // namespace

/// A SettingsFile among others who write it, on disks without room, and with other things than
/// files in its place. What is wrong with a file's content is shown in ConfigStorageTest.
class SettingsFileTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_full_disk_leaves_the_file_and_is_told_each_time_data();
    void a_full_disk_leaves_the_file_and_is_told_each_time();
    void what_others_stored_meanwhile_is_kept();
    void what_others_removed_meanwhile_stays_removed();
    void the_last_one_to_store_an_entry_has_it();
    void many_who_store_at_once_lose_nothing();
    void a_file_that_vanished_meanwhile_is_written_as_a_whole();
    void a_file_damaged_meanwhile_is_set_aside();
    void while_somebody_holds_the_lock_nothing_is_stored();
    void what_is_no_file_is_left_alone_data();
    void what_is_no_file_is_left_alone();
    void a_huge_file_is_set_aside_unread();
    void what_could_not_be_read_again_is_not_stored();
    void the_file_of_a_newer_version_is_left_alone();
    void a_file_can_be_used_again_once_it_is_repaired();
};

void SettingsFileTest::a_full_disk_leaves_the_file_and_is_told_each_time_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("none") << 0;
    QTest::newRow("a little") << 100;
}

void SettingsFileTest::a_full_disk_leaves_the_file_and_is_told_each_time()
{
    QFETCH(const int, room);
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("old", "value");
    QCOMPARE(settings.save(), QString());
    const QByteArray before = contentOf(settings.fileName());
    for (int attempt = 1; attempt <= 2; ++attempt) {
        settings.insert("new", QString(1000 * attempt, 'x'));
        QString problem;
        {
            const FileSizeLimit full(static_cast<rlim_t>(room));
            problem = settings.save();
        }
        QVERIFY2(problem.contains(settings.fileName()), qPrintable(problem));
        QVERIFY2(problem.contains(FileSizeLimit::words), qPrintable(problem));
        QCOMPARE(contentOf(settings.fileName()), before);
    }
    QCOMPARE(settings.save(), QString()); // there is room again
    QCOMPARE(entriesOf(settings).value("new").toString().size(), 2000);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void SettingsFileTest::what_others_stored_meanwhile_is_kept()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("mine", 1);
    settings.insert("both", 1);
    QCOMPARE(settings.save(), QString());
    Settings other(folder);
    QCOMPARE(other.load(), QString());
    other.insert("theirs", 2);
    other.insert("both", 2);
    QCOMPARE(other.save(), QString());

    settings.insert("mine", 3);
    QCOMPARE(settings.save(), QString());
    QCOMPARE(entriesOf(settings), (QJsonObject{{"mine", 3}, {"theirs", 2}, {"both", 2}}));
}

void SettingsFileTest::what_others_removed_meanwhile_stays_removed()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("removed", 1);
    settings.insert("kept", 1);
    QCOMPARE(settings.save(), QString());
    Settings other(folder);
    QCOMPARE(other.load(), QString());
    other.remove("removed");
    QCOMPARE(other.save(), QString());

    settings.insert("kept", 2);
    QCOMPARE(settings.save(), QString());
    QCOMPARE(entriesOf(settings), (QJsonObject{{"kept", 2}}));
}

void SettingsFileTest::the_last_one_to_store_an_entry_has_it()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("number", 1);
    QCOMPARE(settings.save(), QString());
    Settings other(folder);
    QCOMPARE(other.load(), QString());
    other.insert("number", 2);
    QCOMPARE(other.save(), QString());
    settings.insert("number", 1); // nothing new here, but it was chosen after the other
    QCOMPARE(settings.save(), QString());
    QCOMPARE(entriesOf(settings), (QJsonObject{{"number", 1}}));
}

void SettingsFileTest::many_who_store_at_once_lose_nothing()
{
    constexpr int writers = 4;
    constexpr int saves = 25;
    const QTemporaryDir folder;
    std::vector<std::thread> threads;
    std::atomic<int> failures{0};
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([&folder, &failures, writer] {
            Settings settings(folder);
            for (int number = 0; number < saves; ++number) {
                settings.insert(QString("%1 of %2").arg(number).arg(writer), number);
                failures += settings.save().isEmpty() ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(failures.load(), 0);
    QCOMPARE(int(entriesOf(Settings(folder)).size()), writers * saves);
}

void SettingsFileTest::a_file_that_vanished_meanwhile_is_written_as_a_whole()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("first", 1);
    QCOMPARE(settings.save(), QString());
    QVERIFY(QFile::remove(settings.fileName()));
    settings.insert("second", 2);
    QCOMPARE(settings.save(), QString());
    QCOMPARE(entriesOf(settings), (QJsonObject{{"first", 1}, {"second", 2}}));
}

void SettingsFileTest::a_file_damaged_meanwhile_is_set_aside()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("first", 1);
    QCOMPARE(settings.save(), QString());
    write(settings.fileName(), R"({"wrong": 0})");
    settings.insert("second", 2);
    const QString problem = settings.save();
    const QString aside = settings.fileName() + ".damaged-1";
    QVERIFY2(problem.contains("wrong entry") && problem.contains(aside), qPrintable(problem));
    QCOMPARE(contentOf(aside), QByteArray(R"({"wrong": 0})"));
    QCOMPARE(entriesOf(settings), (QJsonObject{{"first", 1}, {"second", 2}}));
    QCOMPARE(settings.save(), QString());
}

void SettingsFileTest::while_somebody_holds_the_lock_nothing_is_stored()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    QLockFile lock(settings.fileName() + ".lock");
    QVERIFY(lock.lock());
    settings.insert("number", 1);
    const QString problem = settings.save();
    QVERIFY2(problem.contains("another program"), qPrintable(problem));
    QVERIFY(!QFile::exists(settings.fileName()));
    lock.unlock();
    QCOMPARE(settings.save(), QString());
    QCOMPARE(entriesOf(settings), (QJsonObject{{"number", 1}}));
}

void SettingsFileTest::what_is_no_file_is_left_alone_data()
{
    QTest::addColumn<QString>("target"); // of a link, or the kind
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("without end") << "/dev/zero";
    QTest::newRow("folder") << "folder";
}

void SettingsFileTest::what_is_no_file_is_left_alone()
{
    QFETCH(const QString, target);
    const QTemporaryDir folder;
    Settings settings(folder);
    const QString name = settings.fileName();
    if (target == "pipe")
        QCOMPARE(mkfifo(QFile::encodeName(name).constData(), 0600), 0);
    else if (target == "folder")
        QVERIFY(QDir().mkdir(name));
    else
        QVERIFY(QFile::link(target, name));
    const QString problem = settings.load();
    QVERIFY2(problem.contains(name) && problem.contains("not a regular file"), qPrintable(problem));
    for (int attempt = 0; attempt < 2; ++attempt) {
        settings.insert("number", attempt);
        const QString words = settings.save();
        QVERIFY2(words.contains("not a regular file"), qPrintable(words));
    }
    QVERIFY(QFileInfo::exists(name) && !QFileInfo(name).isFile());
}

void SettingsFileTest::a_huge_file_is_set_aside_unread()
{
    constexpr qint64 size = 300 * 1024 * 1024;
    const QTemporaryDir folder;
    Settings settings(folder);
    write(settings.fileName(), "{");
    QVERIFY(QFile::resize(settings.fileName(), size)); // takes no room on the disk
    const qint64 before = peakMemory();
    QVERIFY(before > 0);
    const QString problem = settings.load();
    const QString aside = settings.fileName() + ".damaged-1";
    QVERIFY2(problem.contains(aside) && problem.contains("16 MB"), qPrintable(problem));
    QVERIFY2(peakMemory() - before < 100, qPrintable(QString::number(peakMemory() - before)));
    QCOMPARE(QFileInfo(aside).size(), size);
    settings.insert("number", 1);
    QCOMPARE(settings.save(), QString());
}

void SettingsFileTest::what_could_not_be_read_again_is_not_stored()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    settings.insert("number", 1);
    QCOMPARE(settings.save(), QString());
    settings.insert("text", QString(SettingsFile::mostBytes, 'x'));
    const QString problem = settings.save();
    QVERIFY2(problem.contains("16 MB"), qPrintable(problem));
    QCOMPARE(entriesOf(settings), (QJsonObject{{"number", 1}}));
    settings.insert("text", "short");
    QCOMPARE(settings.save(), QString());
}

void SettingsFileTest::the_file_of_a_newer_version_is_left_alone()
{
    const QTemporaryDir folder;
    const QByteArray content = R"({"format": 2, "number": {"typ": "i", "v": 7}})";
    Settings settings(folder);
    write(settings.fileName(), content);
    const QString problem = settings.load();
    QVERIFY2(problem.contains("newer version"), qPrintable(problem));
    QVERIFY(settings.entries().isEmpty());
    settings.insert("number", 1);
    const QString words = settings.save();
    QVERIFY2(words.contains("newer version"), qPrintable(words));
    QCOMPARE(contentOf(settings.fileName()), content);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void SettingsFileTest::a_file_can_be_used_again_once_it_is_repaired()
{
    const QTemporaryDir folder;
    Settings settings(folder);
    QVERIFY(QDir().mkdir(settings.fileName()));
    QVERIFY(!settings.load().isEmpty());
    settings.insert("mine", 1);
    QVERIFY(!settings.save().isEmpty());
    QVERIFY(QDir().rmdir(settings.fileName()));
    write(settings.fileName(), R"({"theirs": 2})");
    QCOMPARE(settings.save(), QString());
    QCOMPARE(entriesOf(settings), (QJsonObject{{"mine", 1}, {"theirs", 2}}));
}

TEST_WITHOUT_WINDOWS(SettingsFileTest)

} // namespace settings_file_test

#include "SettingsFileTest.moc"
