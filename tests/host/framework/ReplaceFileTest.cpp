// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "olm/qt/replaceFile.h"

#include "FileSizeLimit.h"
#include "TestCase.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace replace_file_test {

using olm::qt::replaceFile;

namespace {

QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class ReplaceFileTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_file_is_made_and_replaced();
    void an_older_file_stays_where_the_disk_is_full_data();
    void an_older_file_stays_where_the_disk_is_full();
    void where_there_is_no_folder_the_reason_is_told();
};

void ReplaceFileTest::a_file_is_made_and_replaced()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("file");
    QCOMPARE(replaceFile(file, "long content"), QString());
    QCOMPARE(contentOf(file), QByteArray("long content"));
    QCOMPARE(replaceFile(file, "short"), QString());
    QCOMPARE(contentOf(file), QByteArray("short"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("file"));
}

void ReplaceFileTest::an_older_file_stays_where_the_disk_is_full_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("less than is written at once") << 1000;
    QTest::newRow("more") << 1000000;
}

void ReplaceFileTest::an_older_file_stays_where_the_disk_is_full()
{
    QFETCH(const int, size);
    const QTemporaryDir folder;
    const QString file = folder.filePath("file");
    QCOMPARE(replaceFile(file, "older"), QString());
    {
        const FileSizeLimit full(100);
        QCOMPARE(replaceFile(file, QByteArray(size, 'x')), QString(FileSizeLimit::words));
    }
    QCOMPARE(contentOf(file), QByteArray("older"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("file"));
}

void ReplaceFileTest::where_there_is_no_folder_the_reason_is_told()
{
    const QTemporaryDir folder;
    QCOMPARE(replaceFile(folder.filePath("none/file"), "content"),
             QString("No such file or directory"));
}

TEST_WITHOUT_WINDOWS(ReplaceFileTest)

} // namespace replace_file_test

#include "ReplaceFileTest.moc"
