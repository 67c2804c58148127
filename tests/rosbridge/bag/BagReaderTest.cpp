// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FileSizeLimit.h"
#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"
#include "tests/rosbridge/TestBag.h"

#include "rosbridge/bag/BagReader.h"

#include <QtTest>

namespace bag_reader_test {

using rosbridge::bag::BagReader;

namespace {

std::unique_ptr<BagReader> open(const QString& file)
{
    QString error;
    auto reader = BagReader::open(file, &error);
    if (!reader)
        qWarning("%s", qPrintable(error));
    return reader;
}

std::unique_ptr<BagReader> open(TestBag& bag)
{
    bag.close();
    return open(bag.path());
}

/// The rest of a bag whose messages are texts: "TOPIC SECONDS TEXT".
QStringList rest(BagReader& reader)
{
    QStringList lines;
    for (; !reader.isAtEnd(); reader.advance()) {
        const double seconds = std::chrono::duration<double>(reader.time()).count();
        const QByteArray bytes = reader.bytes(nullptr).value_or("\0\0\0\0damaged");
        lines.append(QStringLiteral("%1 %2 %3")
                         .arg(reader.topics().at(reader.topic()).name,
                              QString::number(seconds - TestBag::beginning),
                              QString::fromUtf8(bytes.mid(4))));
    }
    return lines;
}

QString errorOf(const QString& file)
{
    QString error;
    return BagReader::open(file, &error) ? QStringLiteral("no error") : error;
}

QByteArray number(int value)
{
    return QByteArray::number(value);
}

} // namespace

/// BagReader: bags that rosbag itself wrote, whole and cut off.
class BagReaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void messages_come_in_the_order_of_their_times();
    void a_message_is_what_ros_serialized();
    void a_topic_is_latched_if_one_of_its_publishers_says_so();
    void one_can_go_to_any_time();
    void the_messages_of_a_topic_are_read_in_any_order();
    void of_several_types_of_a_topic_one_is_read();
    void compressed_bags_are_read_data();
    void compressed_bags_are_read();
    void a_bag_that_was_killed_is_read_to_its_last_whole_message();
    void a_bag_that_was_cut_anywhere_is_read_to_there();
    void a_bag_whose_index_was_cut_is_read();
    void a_compressed_bag_without_an_index_is_refused_with_what_to_do();
    void what_is_no_bag_is_refused_with_its_name();
    void without_room_for_a_copy_it_says_so();
};

void BagReaderTest::messages_come_in_the_order_of_their_times()
{
    TestBag bag;
    bag.write("/b", 0.5, "second");
    bag.write("/a", 0.25, "first"); // that came later
    for (int i = 0; i < 200; ++i)   // several chunks
        bag.write(i % 2 == 0 ? "/a" : "c", 1 + i, number(i).constData());
    const auto reader = open(bag);
    QVERIFY(reader);
    QCOMPARE(reader->problems(), QStringList());
    QCOMPARE(reader->end() - reader->begin(), BagReader::Time(std::chrono::milliseconds(199750)));
    const QStringList lines = rest(*reader);
    QCOMPARE(lines.size(), 202);
    QCOMPARE(lines.mid(0, 4), (QStringList{"/a 0.25 first", "/b 0.5 second", "/a 1 0", "/c 2 1"}));
    QCOMPARE(lines.last(), QString("/c 200 199"));
}

void BagReaderTest::a_message_is_what_ros_serialized()
{
    TestBag bag;
    bag.write("/scan", 0, ros_messages::scan());
    const auto reader = open(bag);
    QVERIFY(reader);
    const ros_messages::Example expected = ros_messages::example(ros_messages::scan());
    QCOMPARE(reader->bytes(nullptr), std::optional(expected.bytes));
    QCOMPARE(reader->topics().at(0).type, expected.type);
    QCOMPARE(reader->topics().at(0).definition, expected.definition);
}

void BagReaderTest::a_topic_is_latched_if_one_of_its_publishers_says_so()
{
    TestBag bag;
    bag.write("/map", 0, "a");
    bag.writeLatched("/map", 1, "b");
    bag.writeLatched("/map", 2, "c", "/other");
    bag.write("/scan", 3, "d");
    const auto reader = open(bag);
    QVERIFY(reader);
    QCOMPARE(reader->topics().size(), std::size_t{2});
    for (const BagReader::Topic& topic : reader->topics())
        QCOMPARE(topic.isLatched, topic.name == QLatin1String("/map"));
    QCOMPARE(rest(*reader), (QStringList{"/map 0 a", "/map 1 b", "/map 2 c", "/scan 3 d"}));
}

void BagReaderTest::one_can_go_to_any_time()
{
    TestBag bag;
    for (int i = 0; i < 100; ++i)
        bag.write("/a", i, number(i).constData());
    const auto reader = open(bag);
    QVERIFY(reader);
    reader->seek(reader->begin() + std::chrono::milliseconds(97500));
    QCOMPARE(rest(*reader), (QStringList{"/a 98 98", "/a 99 99"}));
    reader->seek(reader->begin() + std::chrono::seconds(99));
    QCOMPARE(rest(*reader), QStringList("/a 99 99"));
    reader->seek(reader->end() + std::chrono::nanoseconds(1));
    QVERIFY(reader->isAtEnd());
    reader->seek(std::chrono::seconds(-5));
    QCOMPARE(rest(*reader).size(), 100);
}

void BagReaderTest::the_messages_of_a_topic_are_read_in_any_order()
{
    TestBag bag;
    for (int i = 0; i < 100; ++i)
        bag.write(i % 2 == 0 ? "/even" : "/odd", i, number(i).constData());
    const auto reader = open(bag);
    QVERIFY(reader);
    const auto messages = reader->messages("/odd");
    QCOMPARE(messages.size(), std::size_t(50));
    for (const int i : {49, 0, 31}) {
        const auto bytes = messages.bytes(std::size_t(i), nullptr);
        QVERIFY(bytes);
        QCOMPARE(bytes->mid(4), number(2 * i + 1));
    }
    using std::chrono::seconds;
    QVERIFY(messages.time(1) == reader->begin() + seconds(3));
    QCOMPARE(messages.firstAfter(reader->begin()), std::size_t(0));
    QCOMPARE(messages.firstAfter(reader->begin() + seconds(3)), std::size_t(2));
    QCOMPARE(messages.firstAfter(reader->end()), messages.size());
    QVERIFY(reader->messages("/none").isEmpty());
}

void BagReaderTest::of_several_types_of_a_topic_one_is_read()
{
    TestBag bag;
    bag.writeLatched("/a", 0, "text");
    bag.write("/a", 1, ros_messages::scan());
    bag.writeLatched("/a", 2, "more");
    const auto reader = open(bag);
    QVERIFY(reader);
    QCOMPARE(rest(*reader), (QStringList{"/a 0 text", "/a 2 more"}));
    QCOMPARE(reader->problems().size(), 1);
    QVERIFY(reader->problems().first().contains("sensor_msgs/LaserScan"));
}

void BagReaderTest::compressed_bags_are_read_data()
{
    QTest::addColumn<int>("compression");
    QTest::newRow("bz2") << int(rosbag::compression::BZ2);
    QTest::newRow("lz4") << int(rosbag::compression::LZ4);
}

void BagReaderTest::compressed_bags_are_read()
{
    QFETCH(const int, compression);
    TestBag bag{static_cast<rosbag::CompressionType>(compression)};
    for (int i = 0; i < 300; ++i)
        bag.write("/a", i, number(i).constData());
    const auto reader = open(bag);
    QVERIFY(reader);
    const QStringList lines = rest(*reader);
    QCOMPARE(lines.size(), 300);
    QCOMPARE(lines.last(), QString("/a 299 299"));
}

void BagReaderTest::a_bag_that_was_killed_is_read_to_its_last_whole_message()
{
    TestBag bag;
    for (int i = 0; i < 300; ++i)
        bag.write("/a", i, number(i).constData());
    const QByteArray killed = bag.onDisk();
    const auto reader = open(bag.save(killed));
    QVERIFY(reader);
    QCOMPARE(reader->problems().size(), 1);
    QVERIFY(reader->problems().first().contains("cut off"));
    const QStringList lines = rest(*reader);
    const int last = static_cast<int>(lines.size()) - 1;
    QVERIFY(last > 0 && last < 300);
    QCOMPARE(lines.last(), QStringLiteral("/a %1 %1").arg(last));
    // The bytes of the next one are not all on the disk.
    QVERIFY(killed.contains(QByteArray::number(last)));
    QVERIFY(!killed.endsWith(QByteArray::number(last + 1)));
}

void BagReaderTest::a_bag_that_was_cut_anywhere_is_read_to_there()
{
    TestBag bag;
    for (int i = 0; i < 60; ++i)
        bag.write(i % 3 == 0 ? "/a" : "/b", i, number(i).constData());
    bag.close();
    const QByteArray whole = bag.onDisk();
    qsizetype most = 0;
    for (int size = 0; size < whole.size(); size += 397) {
        const QString file = bag.save(whole.left(size));
        QString error;
        const auto reader = BagReader::open(file, &error);
        if (!reader) {
            QCOMPARE(most, qsizetype{0});
            QVERIFY2(error.contains(file), qPrintable(error));
            continue;
        }
        const QStringList lines = rest(*reader);
        QVERIFY(lines.size() >= most);
        QVERIFY(!lines.join(u'\n').contains("damaged"));
        most = lines.size();
        QCOMPARE(lines.last().section(u' ', 1, 1), QString::number(most - 1));
    }
    QCOMPARE(most, qsizetype{60});
}

void BagReaderTest::a_bag_whose_index_was_cut_is_read()
{
    TestBag bag;
    bag.write("/a", 0, "text");
    bag.close();
    const QByteArray whole = bag.onDisk();
    const auto reader = open(bag.save(whole.left(whole.size() - 10)));
    QVERIFY(reader);
    QCOMPARE(rest(*reader), QStringList("/a 0 text"));
}

void BagReaderTest::a_compressed_bag_without_an_index_is_refused_with_what_to_do()
{
    TestBag bag(rosbag::compression::LZ4);
    for (int i = 0; i < 1000; ++i)
        bag.write("/a", i, number(i).constData());
    const QString error = errorOf(bag.save(bag.onDisk()));
    QVERIFY2(error.contains("rosbag reindex"), qPrintable(error));
}

void BagReaderTest::what_is_no_bag_is_refused_with_its_name()
{
    TestBag bag;
    for (const char* content :
         {"", "hello", "#ROSBAG V2.0\n", "#ROSBAG V1.1\n", "#ROSBAG V2.0\n1234567"}) {
        const QString file = bag.save(content);
        const QString error = errorOf(file);
        QVERIFY2(error.startsWith(file + ": "), qPrintable(error));
    }
    QVERIFY(errorOf("/nowhere/x.bag").contains("/nowhere/x.bag: No such file"));
    QVERIFY(errorOf("/tmp").startsWith("/tmp: "));
    const QString error = errorOf((bag.close(), bag.path()));
    QVERIFY2(error.contains("no message"), qPrintable(error));
}

void BagReaderTest::without_room_for_a_copy_it_says_so()
{
    TestBag bag;
    for (int i = 0; i < 300; ++i)
        bag.write("/a", i, number(i).constData());
    const QString file = bag.save(bag.onDisk());
    QString error;
    {
        const FileSizeLimit limit(5000);
        error = errorOf(file);
    }
    QVERIFY2(error.contains("no room") && error.contains(FileSizeLimit::words), qPrintable(error));
}

TEST_WITHOUT_WINDOWS(BagReaderTest)

} // namespace bag_reader_test

#include "BagReaderTest.moc"
