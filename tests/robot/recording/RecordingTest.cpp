// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/Recording.h"
#include "TestCase.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <clocale>
#include <cmath>

namespace recording_test {

using namespace robot::recording;
using robot::simulation::LaserScan;
using robot::simulation::Time;

class RecordingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_table_gives_its_scans();
    void an_old_carmen_log_gives_its_scans();
    void the_angles_of_an_old_carmen_log_follow_from_its_readings_data();
    void the_angles_of_an_old_carmen_log_follow_from_its_readings();
    void a_carmen_log_gives_its_scans_with_their_geometry();
    void other_messages_and_comments_are_skipped();
    void line_ends_do_not_matter_data();
    void line_ends_do_not_matter();
    void numbers_do_not_depend_on_the_locale();
    void stamps_may_run_backwards();
    void a_bad_line_is_reported_and_skipped_data();
    void a_bad_line_is_reported_and_skipped();
    void a_line_that_is_too_long_is_reported_and_skipped();
    void bad_lines_beyond_a_hundred_are_only_counted();
    void what_holds_no_scan_is_an_error_data();
    void what_holds_no_scan_is_an_error();
    void a_file_that_cannot_be_read_is_an_error_with_the_reason_data();
    void a_file_that_cannot_be_read_is_an_error_with_the_reason();
    void a_file_without_end_is_refused();
    void more_scans_than_the_limit_are_refused();
    void the_fuzzers_seeds_are_recordings_or_errors();
    void real_recordings_are_read_with_hardly_a_bad_line();
};

namespace {

std::optional<Recording> read(QByteArray bytes, QString* error,
                              const Recording::Limits& limits = {})
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return Recording::read(buffer, QStringLiteral("test.log"), limits, error);
}

QByteArray tableLine(const QByteArray& time, const QByteArray& range)
{
    QByteArray line = time;
    for (int i = 1; i < 24; ++i)
        line += ' ' + QByteArray::number(1000 + i);
    for (int i = 0; i < 682; ++i)
        line += ' ' + QByteArray::number(i);
    return line + ' ' + range;
}

QByteArray flaser(const QByteArray& countAndReadings, const QByteArray& time = "12.5")
{
    return "FLASER " + countAndReadings + " 1 2 0.1 1 2 0.1 " + time + " host 99";
}

QByteArray robotlaser(const QByteArray& countsAndReadings)
{
    return "ROBOTLASER1 0 -0.5 1.0 0.25 40.0 0.01 0 " + countsAndReadings +
           " 1 2 3 4 5 6 0 0 0.4 0.4 1000000 12.5 host 99";
}

} // namespace

void RecordingTest::a_table_gives_its_scans()
{
    QString error;
    const std::optional<Recording> recording =
        read(tableLine("361431443", "5600") + " 7 8\n" + tableLine("361528520", "0"), &error);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->badLines, 0);
    QCOMPARE(recording->scans.size(), size_t{2});
    const LaserScan& scan = recording->scans[0];
    QCOMPARE(scan.header.stamp.count(), Time(std::chrono::microseconds(361431443)).count());
    QCOMPARE(scan.header.frame_id, QStringLiteral("laser"));
    QCOMPARE(scan.ranges.size(), size_t{683});
    QCOMPARE(scan.ranges[0], 0.0F);
    QCOMPARE(scan.ranges[1], 0.001F);
    QCOMPARE(scan.ranges[682], 5.6F);
    QCOMPARE(scan.angle_min, -2.0943951F);
    QCOMPARE(scan.angle_max, 2.0943951F);
    QCOMPARE(scan.range_max, 5.6F);
    QCOMPARE(recording->scans[1].ranges[682], 0.0F);
}

void RecordingTest::an_old_carmen_log_gives_its_scans()
{
    QString error;
    const std::optional<Recording> recording =
        read(flaser("3 1.25 81.83 0", "976052857.610774"), &error);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->badLines, 0);
    QCOMPARE(recording->scans.size(), size_t{1});
    QVERIFY(recording->scans[0].ranges == (std::vector<float>{1.25F, 81.83F, 0.0F}));
    const Time off = recording->scans[0].header.stamp - std::chrono::microseconds(976052857610774);
    QVERIFY(std::abs(off.count()) < 1000);
}

void RecordingTest::the_angles_of_an_old_carmen_log_follow_from_its_readings_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("last");
    QTest::newRow("1 degree") << 181 << -90.0 << 1.0 << 90.0;
    QTest::newRow("1 degree, last missing") << 180 << -90.0 << 1.0 << 89.0;
    QTest::newRow("half a degree") << 361 << -90.0 << 0.5 << 90.0;
    QTest::newRow("half a degree, last missing") << 360 << -90.0 << 0.5 << 89.5;
    QTest::newRow("a quarter of a degree") << 401 << -50.0 << 0.25 << 50.0;
    QTest::newRow("another laser") << 46 << -90.0 << 4.0 << 90.0;
    QTest::newRow("one") << 1 << -90.0 << 180.0 << -90.0;
}

void RecordingTest::the_angles_of_an_old_carmen_log_follow_from_its_readings()
{
    QFETCH(int, count);
    QFETCH(double, first);
    QFETCH(double, step);
    QFETCH(double, last);
    QString error;
    const std::optional<Recording> recording =
        read(flaser(QByteArray::number(count) + QByteArray(" 1").repeated(count)), &error);

    QVERIFY2(recording, qPrintable(error));
    const LaserScan& scan = recording->scans.at(0);
    QVERIFY(std::abs(qRadiansToDegrees(scan.angle_min) - first) < 1e-3);
    QVERIFY(std::abs(qRadiansToDegrees(scan.angle_increment) - step) < 1e-3);
    QVERIFY(std::abs(qRadiansToDegrees(scan.angle_max) - last) < 1e-3);
}

void RecordingTest::a_carmen_log_gives_its_scans_with_their_geometry()
{
    QString error;
    const std::optional<Recording> recording =
        read(robotlaser("3 1.5 2.5 3.5 0") + '\n' + robotlaser("2 4 5 3 17 18 19"), &error);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->badLines, 0);
    QCOMPARE(recording->scans.size(), size_t{2});
    const LaserScan& scan = recording->scans[0];
    QVERIFY(scan.ranges == (std::vector<float>{1.5F, 2.5F, 3.5F}));
    QCOMPARE(scan.angle_min, -0.5F);
    QCOMPARE(scan.angle_increment, 0.25F);
    QCOMPARE(scan.angle_max, 0.0F);
    QCOMPARE(scan.range_max, 40.0F);
    QCOMPARE(scan.header.stamp.count(), Time(std::chrono::milliseconds(12500)).count());
    QVERIFY(recording->scans[1].ranges == (std::vector<float>{4.0F, 5.0F}));
    QCOMPARE(recording->scans[1].header.stamp.count(), scan.header.stamp.count());
}

void RecordingTest::other_messages_and_comments_are_skipped()
{
    QString error;
    const std::optional<Recording> recording =
        read("# CARMEN Logfile\n\nPARAM robot_length 0.4 host 0\nODOM 1 2 3 0 0 0 1 host 1\n" +
                 flaser("1 2") + "\n   \nRLASER 1 2\nROBOTLASER2 nonsense\nSYNC\n",
             &error);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->scans.size(), size_t{1});
    QCOMPARE(recording->badLines, 0);
}

void RecordingTest::line_ends_do_not_matter_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QByteArray>("last");
    QTest::newRow("unix") << QByteArray("\n") << QByteArray("\n");
    QTest::newRow("windows") << QByteArray("\r\n") << QByteArray("\r\n");
    QTest::newRow("none at the end") << QByteArray("\n") << QByteArray();
    QTest::newRow("blanks") << QByteArray(" \t \n") << QByteArray("\t");
}

void RecordingTest::line_ends_do_not_matter()
{
    QFETCH(QByteArray, end);
    QFETCH(QByteArray, last);
    QString error;
    std::optional<Recording> recording = read(flaser("1 2") + end + flaser("1 3") + last, &error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->scans.size(), size_t{2});
    QCOMPARE(recording->badLines, 0);

    recording = read(tableLine("1", "2") + end + tableLine("3", "4") + last, &error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->scans.size(), size_t{2});
    QCOMPARE(recording->badLines, 0);
}

void RecordingTest::numbers_do_not_depend_on_the_locale()
{
    const QByteArray before = std::setlocale(LC_NUMERIC, nullptr);
    const bool isGerman = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QString error;
    const std::optional<Recording> recording = read(flaser("2 1.25 1e-1"), &error);
    QLocale::setDefault(QLocale::c());
    std::setlocale(LC_NUMERIC, before.constData());

    if (!isGerman)
        qInfo("no German C locale here: only Qt's was tried");
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->scans[0].ranges[0], 1.25F);
    QCOMPARE(recording->scans[0].ranges[1], 0.1F);
}

void RecordingTest::stamps_may_run_backwards()
{
    QString error;
    const std::optional<Recording> recording =
        read(flaser("1 2", "5") + '\n' + flaser("1 2", "-3"), &error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->badLines, 0);
    QCOMPARE(recording->scans.at(1).header.stamp.count(), Time(std::chrono::seconds(-3)).count());
}

void RecordingTest::a_bad_line_is_reported_and_skipped_data()
{
    QTest::addColumn<QByteArray>("good");
    QTest::addColumn<QByteArray>("bad");
    QTest::addColumn<QString>("reason");
    const QByteArray log = flaser("1 2");
    const QByteArray table = tableLine("1", "2");
    const auto carmen = [&log](const char* name, const QByteArray& bad, const char* reason) {
        QTest::newRow(name) << log << bad << reason;
    };
    carmen("no count", "FLASER", "the line ends too early, after 1 words");
    carmen("negative count", flaser("-1 2"), "num_readings, word 2, is \"-1\"");
    carmen("huge count", flaser("99999999999999999999 2"), "num_readings, word 2");
    carmen("count beyond the line", flaser("1000000 2"), "num_readings, word 2, is \"1000000\"");
    carmen("broken count", flaser("1.5 2"), "num_readings is 1.5, not a whole number");
    carmen("count of text", flaser("one 2"), "num_readings, word 2, is \"one\"");
    carmen("no readings", flaser("0"), "it has no readings");
    carmen("one reading too few", flaser("2 1"), "8 words follow the readings");
    carmen("one reading too many", flaser("1 1 2"), "10 words follow the readings");
    carmen("nan", flaser("2 1 nan"), "a range, word 4, is \"nan\"");
    carmen("infinite", flaser("2 inf 1"), "a range, word 3, is \"inf\"");
    carmen("overflow", flaser("1 1e999"), "a range, word 3, is \"1e999\"");
    carmen("negative range", flaser("1 -0.5"), "a range, word 3, is \"-0.5\"");
    carmen("number with a tail", flaser("1 1.5m"), "a range, word 3, is \"1.5m\"");
    carmen("comma", flaser("1 1,5"), "a range, word 3, is \"1,5\"");
    carmen("time not a number", flaser("1 1", "now"), "ipc_timestamp, word 10, is \"now\"");
    carmen("time beyond all clocks", flaser("1 1", "1e300"), "ipc_timestamp, word 10");
    carmen("no remissions", "ROBOTLASER1 0 -1 2 0.1 40 0.01 0 1 2", "the line ends");
    carmen("too many remissions", robotlaser("1 2 99"), "num_remissions, word 11, is \"99\"");
    carmen("no poses", "ROBOTLASER1 0 -1 2 0.1 40 0.01 0 1 2 0 12.5 host 99", "3 words follow");
    carmen("no resolution", robotlaser("1 2 0").replace("0.25", "0"), "angular_resolution");
    carmen("start beyond the circle", robotlaser("1 2 0").replace("-0.5", "99"), "start_angle");
    carmen("numbers in a log", "12 13", "the line begins with \"12\"");
    carmen("zeros", QByteArray(10, '\0'), "the line begins with \"??????????\"");
    carmen("placeholder", flaser("1 %4"), "is \"%4\" and not a number from 0");
    QTest::newRow("table: too short")
        << table << QByteArray("5 6 7") << "the line ends too early, after 3";
    QTest::newRow("table: a range short")
        << table << table.left(table.lastIndexOf(' ')) << "the line ends too early, after 706";
    QTest::newRow("table: nan") << table << tableLine("1", "nan")
                                << "a range, word 707, is \"nan\"";
    QTest::newRow("table: negative") << table << tableLine("1", "-1") << "a range, word 707";
    QTest::newRow("table: time") << table << tableLine("1e300", "1") << "the time, word 1";
    QTest::newRow("table: message") << table << log << "the line begins with \"FLASER\"";
    QTest::newRow("table: binary")
        << table << QByteArray("\xff\xfe\x00\x01 1", 6) << "the line begins with \"????\"";
}

void RecordingTest::a_bad_line_is_reported_and_skipped()
{
    QFETCH(QByteArray, good);
    QFETCH(QByteArray, bad);
    QFETCH(QString, reason);
    QString error;
    const std::optional<Recording> recording = read(good + '\n' + bad + '\n' + good + '\n', &error);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->scans.size(), size_t{2});
    QCOMPARE(recording->badLines, 1);
    QCOMPARE(recording->problems.size(), 1);
    const QString problem = recording->problems.first();
    QVERIFY2(problem.startsWith("test.log:2: "), qPrintable(problem));
    QVERIFY2(problem.contains(reason), qPrintable(problem));
}

void RecordingTest::a_line_that_is_too_long_is_reported_and_skipped()
{
    Recording::Limits limits;
    limits.lineLength = 100;
    QString error;
    const QByteArray fits = flaser("1 2") + QByteArray(100 - flaser("1 2").size(), ' ');
    const std::optional<Recording> recording =
        read(fits + '\n' + QByteArray(1000, 'x') + '\n' + fits + ' ', &error, limits);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->scans.size(), size_t{1});
    QCOMPARE(recording->problems, QStringList({"test.log:2: the line is longer than 100 bytes",
                                               "test.log:3: the line is longer than 100 bytes"}));
}

void RecordingTest::bad_lines_beyond_a_hundred_are_only_counted()
{
    QString error;
    const std::optional<Recording> recording =
        read(flaser("1 2") + '\n' + QByteArray("FLASER\n").repeated(250), &error);

    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->badLines, 250);
    QCOMPARE(recording->problems.size(), 100);
}

void RecordingTest::what_holds_no_scan_is_an_error_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << "It must be a CARMEN log";
    QTest::newRow("comments") << QByteArray("# nothing\n\n") << "It must be a CARMEN log";
    QTest::newRow("other messages") << QByteArray("ODOM 1 2 3\n") << "It must be a CARMEN log";
    QTest::newRow("prose") << QByteArray("Dear robot,\n") << "test.log:1: the line begins with";
    QTest::newRow("only a bad line") << QByteArray("\nFLASER 7\n") << "test.log:2: num_readings";
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\x00\x01",
                                          6)
                            << "test.log:1:";
}

void RecordingTest::what_holds_no_scan_is_an_error()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QString error;
    QVERIFY(!read(bytes, &error));
    QVERIFY2(error.startsWith("The recording test.log contains no laser scan."), qPrintable(error));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void RecordingTest::a_file_that_cannot_be_read_is_an_error_with_the_reason_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("missing") << "/nowhere/scans.log";
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("no name") << "";
    // It opens, but the first read fails.
    QTest::newRow("failing") << "/proc/self/mem";
}

void RecordingTest::a_file_that_cannot_be_read_is_an_error_with_the_reason()
{
    QFETCH(QString, file);
    QString error;
    if (file.isEmpty())
        expectWarning("QFSFileEngine::open: No file name specified");
    QVERIFY(!Recording::read(file, &error));
    const QString start = QStringLiteral("The recording %1 cannot be read: ").arg(file);
    QVERIFY2(error.startsWith(start), qPrintable(error));
    QVERIFY2(error.size() > start.size() + 5, qPrintable(error));
    QVERIFY2(!error.contains("Unknown error"), qPrintable(error));
}

void RecordingTest::a_file_without_end_is_refused()
{
    Recording::Limits limits;
    limits.fileSize = 1000000;
    QString error;
    QVERIFY(!Recording::read(QStringLiteral("/dev/zero"), limits, &error));
    QCOMPARE(error,
             QStringLiteral("The recording /dev/zero is larger than 1000000 bytes. Split it."));
}

void RecordingTest::more_scans_than_the_limit_are_refused()
{
    Recording::Limits limits;
    limits.memory = 10000;
    QString error;
    QVERIFY(read((flaser("1 2") + '\n').repeated(10), &error, limits));
    QVERIFY(!read((flaser("1 2") + '\n').repeated(1000), &error, limits));
    QCOMPARE(error, QStringLiteral("The scans of the recording test.log need more than 10000 bytes "
                                   "of memory. Split it."));
}

void RecordingTest::the_fuzzers_seeds_are_recordings_or_errors()
{
    const QFileInfoList files = QDir(QStringLiteral(CORPUS)).entryInfoList(QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo& file : files) {
        QString error;
        const std::optional<Recording> recording = Recording::read(file.filePath(), &error);
        QCOMPARE(recording.has_value(), error.isEmpty());
        QCOMPARE(recording.has_value(), file.fileName() != QStringLiteral("binary.dat"));
    }
}

void RecordingTest::real_recordings_are_read_with_hardly_a_bad_line()
{
    const QString folder = qEnvironmentVariable("QUANDREL_RECORDINGS");
    // The comma is for clang, which wants the macro's second argument to be there.
    if (folder.isEmpty())
        QSKIP("QUANDREL_RECORDINGS is not set to a folder with recordings", );
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
    QVERIFY2(!files.isEmpty(), qPrintable(folder + " has no files"));
    for (const QFileInfo& file : files) {
        QString error;
        const std::optional<Recording> recording = Recording::read(file.filePath(), &error);
        QVERIFY2(recording, qPrintable(error));
        const auto scans = static_cast<int>(recording->scans.size());
        qInfo("%s: %d scans, %d bad lines %s", qPrintable(file.fileName()), scans,
              recording->badLines, qPrintable(recording->problems.join('\n')));
        // Where a logger was stopped or its disk was full, a line is cut.
        QVERIFY(recording->badLines <= 1 + scans / 100);
    }
}

TEST_WITHOUT_WINDOWS(RecordingTest)

} // namespace recording_test

#include "RecordingTest.moc"
