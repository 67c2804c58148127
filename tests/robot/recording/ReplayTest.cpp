// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/Replay.h"
#include "TestCase.h"

#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(std::vector<int>)

namespace replay_test {

using namespace robot::recording;
using robot::simulation::LaserScan;
using robot::simulation::Time;
using std::chrono::milliseconds;
using std::chrono::seconds;

class ReplayTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void scans_come_in_order_when_they_are_due_data();
    void scans_come_in_order_when_they_are_due();
    void looping_it_begins_again_after_a_nominal_period();
    void without_looping_it_ends();
    void who_asks_late_gets_no_burst();
    void what_cannot_be_replayed_is_refused_with_the_reason_data();
    void what_cannot_be_replayed_is_refused_with_the_reason();
};

namespace {

std::vector<LaserScan> scansAt(const std::vector<int>& stamps)
{
    std::vector<LaserScan> scans;
    for (const int stamp : stamps) {
        LaserScan scan;
        scan.header.seq = static_cast<quint32>(scans.size());
        scan.header.stamp = milliseconds(stamp);
        scans.push_back(scan);
    }
    return scans;
}

// The milliseconds at which the next scans come, asked every one of them. Each is the one after
// the last.
std::vector<int> dueTimes(Replay& replay, size_t count, size_t inRecording)
{
    std::vector<int> due;
    for (int now = 0; due.size() < count && now < 100000; ++now) {
        while (const LaserScan* scan = replay.next(milliseconds(now))) {
            if (scan->header.seq != due.size() % inRecording)
                return {};
            due.push_back(now);
        }
    }
    return due;
}

} // namespace

void ReplayTest::scans_come_in_order_when_they_are_due_data()
{
    QTest::addColumn<std::vector<int>>("stamps");
    QTest::addColumn<double>("rate");
    QTest::addColumn<std::vector<int>>("due");
    using Times = std::vector<int>;
    QTest::newRow("even") << Times{5000, 5100, 5200} << 1.0 << Times{0, 100, 200};
    QTest::newRow("uneven") << Times{-50, 0, 250, 260} << 1.0 << Times{0, 50, 300, 310};
    QTest::newRow("twice as fast") << Times{0, 100, 200} << 2.0 << Times{0, 50, 100};
    QTest::newRow("half as fast") << Times{0, 100, 200} << 0.5 << Times{0, 200, 400};
    QTest::newRow("a pause") << Times{0, 100, 5100, 5200} << 1.0 << Times{0, 100, 5100, 5200};
    QTest::newRow("backwards") << Times{1000, 1080, 500, 580} << 1.0 << Times{0, 80, 160, 240};
    QTest::newRow("standing") << Times{7, 7, 7} << 1.0 << Times{0, 100, 200};
    QTest::newRow("jump ahead") << Times{0, 50, 4000000, 4000050} << 1.0 << Times{0, 50, 100, 150};
    QTest::newRow("one") << Times{3} << 1.0 << Times{0};
}

void ReplayTest::scans_come_in_order_when_they_are_due()
{
    QFETCH(std::vector<int>, stamps);
    QFETCH(double, rate);
    QFETCH(std::vector<int>, due);
    std::optional<Replay> replay = Replay::create(scansAt(stamps), {rate, true}, nullptr);
    QVERIFY(replay);

    QCOMPARE(dueTimes(*replay, stamps.size(), stamps.size()), due);
}

void ReplayTest::looping_it_begins_again_after_a_nominal_period()
{
    // Steps of 40, 60 and 300 ms: the median is 60.
    std::optional<Replay> replay = Replay::create(scansAt({0, 40, 100, 400}), {}, nullptr);
    QVERIFY(replay);
    QCOMPARE(replay->period().count(), Time(milliseconds(60)).count());

    const std::vector<int> expected{0, 40, 100, 400, 460, 500, 560, 860, 920};
    QCOMPARE(dueTimes(*replay, expected.size(), 4), expected);
    QVERIFY(!replay->isFinished());
}

void ReplayTest::without_looping_it_ends()
{
    std::optional<Replay> replay = Replay::create(scansAt({0, 100}), {1.0, false}, nullptr);
    QVERIFY(replay);
    QVERIFY(replay->next(seconds(0)));
    QVERIFY(!replay->isFinished());
    QVERIFY(replay->next(milliseconds(100)));
    QVERIFY(replay->isFinished());
    QVERIFY(!replay->next(seconds(1000)));
}

void ReplayTest::who_asks_late_gets_no_burst()
{
    std::optional<Replay> replay = Replay::create(scansAt({0, 100, 200, 300}), {}, nullptr);
    QVERIFY(replay);
    QVERIFY(replay->next(seconds(0)));

    QVERIFY(replay->next(seconds(3600)));
    QVERIFY(!replay->next(seconds(3600)));
    QVERIFY(replay->next(seconds(3600) + milliseconds(100)));
}

void ReplayTest::what_cannot_be_replayed_is_refused_with_the_reason_data()
{
    QTest::addColumn<std::vector<int>>("stamps");
    QTest::addColumn<double>("rate");
    QTest::addColumn<QString>("error");
    using Times = std::vector<int>;
    const QString rate = QStringLiteral("The replay rate %1 is not from 0.01 to 100.");
    QTest::newRow("no scans") << Times{} << 1.0 << "There are no scans to replay.";
    QTest::newRow("no rate") << Times{0} << 0.0 << rate.arg(0);
    QTest::newRow("backwards") << Times{0} << -1.0 << rate.arg(-1);
    QTest::newRow("too fast") << Times{0} << 101.0 << rate.arg(101);
    QTest::newRow("infinite") << Times{0} << std::numeric_limits<double>::infinity()
                              << rate.arg("inf");
    QTest::newRow("nan") << Times{0} << std::numeric_limits<double>::quiet_NaN() << rate.arg("nan");
}

void ReplayTest::what_cannot_be_replayed_is_refused_with_the_reason()
{
    QFETCH(std::vector<int>, stamps);
    QFETCH(double, rate);
    QFETCH(QString, error);
    QString found;
    QVERIFY(!Replay::create(scansAt(stamps), {rate, true}, &found));
    QCOMPARE(found, error);
}

TEST_WITHOUT_WINDOWS(ReplayTest)

} // namespace replay_test

#include "ReplayTest.moc"
