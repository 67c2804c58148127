// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FileSizeLimit.h"
#include "ResidentBytes.h"
#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"

#include "rosbridge/bag/BagReader.h"
#include "rosbridge/bag/BagWriter.h"

#include <std_msgs/String.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace bag_writer_test {

using rosbridge::bag::BagReader;
using rosbridge::bag::BagWriter;
using namespace std::chrono_literals;

namespace {

constexpr qint64 noBound = qint64{1} << 40;

/// A bag that is written, and its topics.
struct NewBag
{
    explicit NewBag(qint64 mostBytes = noBound) : writer(BagWriter::create(name, mostBytes, &error))
    {
    }

    int add(const QByteArray& topic, const ros_messages::Example& example)
    {
        const auto definition = ros_messages::definition(example);
        return writer->add(
            {topic, example.type.toLatin1(), example.definition.toUtf8(), definition.checksum()});
    }

    /// Texts of that many bytes each second until there is no room; how many were written.
    int fill(int size)
    {
        const int topic = add("/texts", ros_messages::example(std_msgs::String()));
        std_msgs::String text;
        text.data = std::string(static_cast<std::size_t>(size), 'x');
        const QByteArray bytes = ros_messages::serialized(text);
        int count = 0;
        while (writer->write(topic, 1h + count * 1s, bytes))
            ++count;
        return count;
    }

    QByteArray onDisk() const
    {
        QFile file(name + ".active");
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QTemporaryDir folder;
    const QString name = folder.filePath("new.bag");
    QString error;
    std::unique_ptr<BagWriter> writer;
};

std::unique_ptr<BagReader> open(const QString& name)
{
    QString error;
    auto reader = BagReader::open(name, &error);
    if (!reader)
        qWarning("%s", qPrintable(error));
    return reader;
}

/// What the files without a name take that this program keeps in memory.
qint64 memoryFileBytes()
{
    qint64 bytes = 0;
    const QFileInfoList files = QDir("/proc/self/fd").entryInfoList(QDir::System | QDir::Files);
    for (const QFileInfo& file : files) {
        struct stat status = {};
        if (file.symLinkTarget().contains("memfd:bag") &&
            stat(qPrintable(file.filePath()), &status) == 0)
            bytes += qint64{status.st_blocks} * 512;
    }
    return bytes;
}

int count(BagReader& reader)
{
    int count = 0;
    for (; !reader.isAtEnd(); reader.advance())
        count += reader.bytes(nullptr) ? 1 : 0;
    return count;
}

} // namespace

/// BagWriter: what it writes, as rosbag reads it.
class BagWriterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void messages_of_all_types_come_back();
    void what_was_flushed_survives_kill();
    void a_full_disk_ends_the_bag_and_loses_nothing();
    void a_bag_does_not_exceed_its_bound();
    void a_disk_that_fails_keeps_what_was_flushed();
    void a_long_recording_takes_no_memory();
    void a_bag_that_was_cut_off_is_not_overwritten();
    void a_folder_that_is_not_there_is_named();
};

void BagWriterTest::messages_of_all_types_come_back()
{
    NewBag bag;
    const QVector<ros_messages::Example> examples = ros_messages::all();
    for (int i = 0; i < examples.size(); ++i) {
        const QByteArray topic = "/topic" + QByteArray::number(i);
        QVERIFY(bag.writer->write(bag.add(topic, examples[i]), 1h + i * 1s, examples[i].bytes));
        QVERIFY(i % 3 != 0 || bag.writer->flush()); // several chunks
    }
    QCOMPARE(bag.writer->finish(), QString());
    QVERIFY(!QFile::exists(bag.name + ".active"));
    QCOMPARE(bag.writer->size(), QFile(bag.name).size());
    const auto reader = open(bag.name);
    QVERIFY(reader);
    QCOMPARE(reader->problems(), QStringList());
    for (int i = 0; i < examples.size(); ++i, reader->advance()) {
        const BagReader::Topic& topic = reader->topics().at(reader->topic());
        QCOMPARE(topic.name, QStringLiteral("/topic%1").arg(i));
        QCOMPARE(topic.type, examples[i].type);
        QCOMPARE(topic.definition, examples[i].definition);
        QCOMPARE(reader->bytes(nullptr), std::optional(examples[i].bytes));
        QVERIFY(reader->time() == 1h + i * 1s);
    }
    QVERIFY(reader->isAtEnd());
}

void BagWriterTest::what_was_flushed_survives_kill()
{
    NewBag bag;
    const ros_messages::Example scan = ros_messages::example(ros_messages::scan());
    const int topic = bag.add("/scan", scan);
    for (int i = 0; i < 10; ++i) {
        QVERIFY(bag.writer->write(topic, 1h + i * 1s, scan.bytes));
        QVERIFY(i == 9 || bag.writer->flush());
    }
    QFile killed(bag.folder.filePath("killed.bag"));
    QVERIFY(killed.open(QIODevice::WriteOnly));
    killed.write(bag.onDisk());
    killed.close();
    const auto reader = open(killed.fileName());
    QVERIFY(reader);
    QVERIFY(reader->problems().value(0).endsWith("was cut off: only what is whole is read"));
    QCOMPARE(count(*reader), 9);
}

void BagWriterTest::a_full_disk_ends_the_bag_and_loses_nothing()
{
    NewBag bag;
    const QVector<ros_messages::Example> examples = ros_messages::all();
    for (int i = 0; i < examples.size(); ++i) // whose definitions make the index long
        QVERIFY(bag.writer->write(bag.add("/topic" + QByteArray::number(i), examples[i]), 1h,
                                  examples[i].bytes));
    int written = 0;
    {
        const FileSizeLimit limit(6000000);
        written = bag.fill(5000);
        QVERIFY(written >= 1000);
        QCOMPARE(bag.writer->error(),
                 QStringLiteral("%1: %2").arg(bag.name, QLatin1String(FileSizeLimit::words)));
        QCOMPARE(bag.writer->finish(), QString());
    }
    const auto reader = open(bag.name);
    QVERIFY(reader);
    QCOMPARE(reader->problems(), QStringList()); // it has its index
    QCOMPARE(count(*reader), written + examples.size());
}

void BagWriterTest::a_bag_does_not_exceed_its_bound()
{
    constexpr qint64 bound = 100000;
    NewBag bag(bound);
    const int written = bag.fill(40); // so small that what is beside them counts
    QVERIFY(bag.writer->error().endsWith("has reached the largest size of a recording, 97.66 KiB"));
    QCOMPARE(bag.writer->finish(), QString());
    const qint64 size = QFile(bag.name).size();
    QVERIFY2(size <= bound && size > bound * 9 / 10, qPrintable(QString::number(size)));
    const auto reader = open(bag.name);
    QVERIFY(reader);
    QCOMPARE(count(*reader), written);
}

void BagWriterTest::a_disk_that_fails_keeps_what_was_flushed()
{
    NewBag bag;
    const FileSizeLimit limit(2000000); // of what was promised before
    QVERIFY(bag.fill(100000) > 0);
    QVERIFY(!bag.writer->error().isEmpty());
    const QString problem = bag.writer->finish();
    QVERIFY2(problem.startsWith(bag.name + ".active keeps its name"), qPrintable(problem));
    QVERIFY(!QFile::exists(bag.name));
    const auto reader = open(bag.name + ".active");
    QVERIFY(reader);
    QVERIFY(count(*reader) >= 10); // a chunk
}

void BagWriterTest::a_long_recording_takes_no_memory()
{
    constexpr qint64 mebibyte = 1024 * 1024;
    NewBag bag(100 * mebibyte);
    const qint64 before = residentBytes();
    QVERIFY(bag.fill(60000) > 1500);
    const qint64 grown = residentBytes() - before;
    QVERIFY2(grown < 50 * mebibyte + heldBackBytes, qPrintable(QString::number(grown)));
    const qint64 inMemory = memoryFileBytes();
    QVERIFY2(inMemory > 0 && inMemory < 10 * mebibyte, qPrintable(QString::number(inMemory)));
}

void BagWriterTest::a_bag_that_was_cut_off_is_not_overwritten()
{
    NewBag bag;
    QString error;
    QVERIFY(!BagWriter::create(bag.name, noBound, &error));
    QCOMPARE(error, QStringLiteral("%1.active is there: it was cut off while it was recorded. "
                                   "Rename it to keep it, or remove it.")
                        .arg(bag.name));
}

void BagWriterTest::a_folder_that_is_not_there_is_named()
{
    QString error;
    QVERIFY(!BagWriter::create("/nowhere/new.bag", noBound, &error));
    QCOMPARE(error, QString("/nowhere/new.bag.active: No such file or directory"));
}

TEST_WITHOUT_WINDOWS(BagWriterTest)

} // namespace bag_writer_test

#include "BagWriterTest.moc"
