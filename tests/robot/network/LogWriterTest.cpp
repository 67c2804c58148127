// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/robot/Watcher.h"

#include "robot/network/Clock.h"
#include "robot/network/LogWriter.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/protocol/Address.h"

#include <QtTest>

namespace log_writer_test {

using robot::network::Clock;
using robot::network::Log;
using robot::network::LogWriter;
using robot::network::Network;
using robot::network::robotLimits;

namespace {

/// A robot without parts, a client that reads its log, and somebody who writes there.
struct Scene
{
    bool open()
    {
        QString error;
        if (!network.listen({QStringLiteral("127.0.0.1"), 0}, &error))
            return false;
        reader = std::make_unique<Watcher>(network.port());
        if (!QTest::qWaitFor([this] { return reader->isOpen(); }, patience))
            return false;
        reader->subscribe(QStringLiteral("/rosout"), QStringLiteral("rosgraph_msgs/Log"));
        reader->call("/rosapi/topics"); // answered after the subscription
        return QTest::qWaitFor([this] { return !reader->answers.isEmpty(); }, patience);
    }

    /// What came so far, in order, of the part "test".
    QStringList lines()
    {
        QStringList lines;
        for (const QCborMap& line : reader->messages[QStringLiteral("/rosout")]) {
            if (line.value(QLatin1String("name")).toString() == QLatin1String("test"))
                lines.append(line.value(QLatin1String("msg")).toString());
        }
        return lines;
    }

    const Clock clock;
    Network network{clock, robotLimits()};
    LogWriter writer{network.log(), QStringLiteral("test")};
    std::unique_ptr<Watcher> reader;
};

} // namespace

/// Log and LogWriter: the lines in /rosout.
class LogWriterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lines_beyond_a_few_a_second_are_counted_and_the_number_is_told();
    void a_line_has_no_line_breaks_and_at_most_2000_characters();
};

void LogWriterTest::lines_beyond_a_few_a_second_are_counted_and_the_number_is_told()
{
    constexpr int count = 1000;
    Scene scene;
    QVERIFY(scene.open());
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < count; ++i)
        scene.writer.write(Log::Level::Info, QStringLiteral("line %1").arg(i));
    const auto most =
        LogWriter::lineBurst + LogWriter::linesPerSecond * (timer.elapsed() / 1000 + 1);

    QTRY_VERIFY_WITH_TIMEOUT(scene.lines().filter(QStringLiteral("left out")).size() == 1,
                             patience);
    const QStringList lines = scene.lines();
    const auto written = lines.size() - 1;
    QVERIFY2(written >= LogWriter::lineBurst && written <= most, qPrintable(lines.join('\n')));
    QCOMPARE(lines.first(), QStringLiteral("line 0"));
    QCOMPARE(lines.last(), QStringLiteral("%1 more lines were left out: clients caused too many")
                               .arg(count - written));

    scene.writer.write(Log::Level::Info, QStringLiteral("as usual")); // room has been found since
    QTRY_VERIFY_WITH_TIMEOUT(scene.lines().last() == QLatin1String("as usual"), patience);
}

void LogWriterTest::a_line_has_no_line_breaks_and_at_most_2000_characters()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.writer.write(Log::Level::Info, QStringLiteral("a\nb\r\nc\u2028d\ve"));
    scene.writer.write(Log::Level::Info, QString(2000, u'x'));
    scene.writer.write(Log::Level::Info, QString(2001, u'x'));
    QTRY_COMPARE_WITH_TIMEOUT(int(scene.lines().size()), 3, patience);
    QCOMPARE(scene.lines().at(0), QStringLiteral("a b c d e"));
    QCOMPARE(scene.lines().at(1), QString(2000, u'x'));
    QCOMPARE(scene.lines().at(2), QString(1999, u'x') + QChar(0x2026));
}

TEST_WITHOUT_WINDOWS(LogWriterTest)

} // namespace log_writer_test

#include "LogWriterTest.moc"
