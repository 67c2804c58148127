// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Camera.h"
#include "TestCase.h"

#include <QtTest>

namespace camera_test {

using namespace robot::simulation;
using std::chrono::milliseconds;
using std::chrono::seconds;

class CameraTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void frames_come_at_the_rate_of_the_resolution_data();
    void frames_come_at_the_rate_of_the_resolution();
    void a_frame_describes_its_lens();
    void an_unknown_resolution_is_refused_with_the_known_ones_data();
    void an_unknown_resolution_is_refused_with_the_known_ones();
    void frames_that_nobody_took_are_lost();
    void seq_goes_on_with_another_resolution();
};

void CameraTest::frames_come_at_the_rate_of_the_resolution_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("width");
    QTest::addColumn<quint32>("height");
    QTest::addColumn<int>("rate");
    QTest::newRow("small") << "320x240" << 320U << 240U << 30;
    QTest::newRow("middle") << "640x480" << 640U << 480U << 20;
    QTest::newRow("large") << "1024x768" << 1024U << 768U << 10;
}

void CameraTest::frames_come_at_the_rate_of_the_resolution()
{
    QFETCH(QString, name);
    QFETCH(quint32, width);
    QFETCH(quint32, height);
    QFETCH(int, rate);
    Camera camera;
    QVERIFY(camera.setResolution(name, seconds(5), nullptr));
    QVERIFY(!camera.takeFrame(milliseconds(4990)));

    int frames = 0;
    for (Time now = seconds(5); now < seconds(15); now += milliseconds(10)) {
        const std::optional<CameraInfo> frame = camera.takeFrame(now);
        QVERIFY(!camera.takeFrame(now));
        if (!frame)
            continue;
        QCOMPARE(frame->width, width);
        QCOMPARE(frame->height, height);
        QCOMPARE(frame->header.seq, static_cast<quint32>(frames));
        const Time due = seconds(5) + Time(seconds(frames)) / rate;
        QCOMPARE(frame->header.stamp.count(), due.count());
        QVERIFY(now - due < milliseconds(11));
        ++frames;
    }
    QCOMPARE(frames, 10 * rate);
}

void CameraTest::a_frame_describes_its_lens()
{
    Camera camera;
    const std::optional<CameraInfo> info = camera.takeFrame(seconds(0));

    QVERIFY(info);
    QCOMPARE(info->header.frame_id, QStringLiteral("camera_optical_frame"));
    QCOMPARE(info->width, 640U);
    QCOMPARE(info->distortion_model, QStringLiteral("plumb_bob"));
    QCOMPARE(info->D.size(), size_t{5});
    // 60 degrees across: half the width is at half of that.
    QCOMPARE(info->K[0], 320.0 / 0.57735026918962573);
    QCOMPARE(info->K[4], info->K[0]);
    QCOMPARE(info->K[2], 319.5);
    QCOMPARE(info->K[5], 239.5);
    QCOMPARE(info->K[8], 1.0);
    QCOMPARE(info->R[0] + info->R[4] + info->R[8], 3.0);
    QCOMPARE(info->P[0], info->K[0]);
    QCOMPARE(info->P[5], info->K[4]);
    QCOMPARE(info->P[2], info->K[2]);
    QCOMPARE(info->P[6], info->K[5]);
    QCOMPARE(info->P[10], 1.0);
}

void CameraTest::an_unknown_resolution_is_refused_with_the_known_ones_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("another size") << "800x600";
    QTest::newRow("nothing") << "";
    QTest::newRow("only half") << "640";
    QTest::newRow("capital") << "640X480";
}

void CameraTest::an_unknown_resolution_is_refused_with_the_known_ones()
{
    QFETCH(QString, name);
    Camera camera;
    QString error;
    QVERIFY(!camera.setResolution(name, seconds(0), &error));

    QCOMPARE(error, QStringLiteral("The camera has no resolution \"%1\"; it has 320x240, 640x480, "
                                   "1024x768.")
                        .arg(name));
    QCOMPARE(camera.resolution().width, 640U);
}

void CameraTest::frames_that_nobody_took_are_lost()
{
    Camera camera;
    QCOMPARE(camera.takeFrame(seconds(0))->header.seq, 0U);
    const std::optional<CameraInfo> frame = camera.takeFrame(milliseconds(1010));
    QVERIFY(frame);
    QCOMPARE(frame->header.seq, 20U);
    QCOMPARE(frame->header.stamp.count(), Time(seconds(1)).count());
    QVERIFY(!camera.takeFrame(milliseconds(1040)));
}

void CameraTest::seq_goes_on_with_another_resolution()
{
    Camera camera;
    QCOMPARE(camera.takeFrame(seconds(0))->header.seq, 0U);
    QVERIFY(camera.setResolution(QStringLiteral("320x240"), seconds(1), nullptr));
    QCOMPARE(camera.takeFrame(seconds(1))->header.seq, 1U);
}

TEST_WITHOUT_WINDOWS(CameraTest)

} // namespace camera_test

#include "CameraTest.moc"
