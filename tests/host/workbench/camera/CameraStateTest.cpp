// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Pictures.h"
#include "TestCase.h"

#include "host/workbench/camera/CameraState.h"

#include <QtTest>

namespace camera_state_test {

using namespace host::workbench::camera;
using namespace std::chrono_literals;
using Offered = CameraState::Offered;

namespace {

const CameraState::TimePoint start{1h};

CameraState withPicture()
{
    CameraState state;
    state.begin();
    state.setOffered(Offered::Offered, "/eye", "sensor_msgs/CompressedImage");
    state.arrived(start);
    state.read(pictures::pictureMessage(pictures::plain()), start);
    return state;
}

} // namespace

/// What is said of a robot's pictures, and when.
class CameraStateTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_says_why_there_is_no_picture();
    void a_picture_is_shown_with_its_size_rate_and_age();
    void a_picture_grows_old();
    void one_that_cannot_be_read_is_said_until_the_next();
    void a_picture_stays_after_the_link_and_goes_with_the_next();
};

void CameraStateTest::it_says_why_there_is_no_picture()
{
    CameraState state;
    QCOMPARE(state.problem(start), QString("Not connected."));
    QCOMPARE(state.caption(start), QString());
    state.begin();
    QCOMPARE(state.problem(start),
             QString("Waiting for a picture on /camera/image_raw/compressed …"));
    state.setOffered(Offered::Offered, "/eye", "sensor_msgs/CompressedImage");
    QCOMPARE(state.problem(start), QString("Waiting for a picture on /eye …"));
    state.setOffered(Offered::Missing, "/eye", {});
    QCOMPARE(state.problem(start),
             QString("The robot does not publish /eye. If it has another name for its pictures, "
                     "enter it in Robot > Names…."));
    state.setOffered(Offered::OtherType, "/eye", "sensor_msgs/Image");
    QCOMPARE(state.problem(start), QString("The robot publishes /eye as sensor_msgs/Image, not as "
                                           "sensor_msgs/CompressedImage."));
}

void CameraStateTest::a_picture_is_shown_with_its_size_rate_and_age()
{
    CameraState state = withPicture();
    QCOMPARE(state.picture().size(), QSize(64, 48));
    QCOMPARE(state.problem(start), QString());
    QVERIFY(!state.isOld(start));
    QCOMPARE(state.caption(start + 300ms), QString("64 × 48 · 0.3 s old"));
    for (int i = 1; i <= 20; ++i)
        state.arrived(start + i * 50ms); // of which none is read
    QCOMPARE(state.caption(start + 1s), QString("64 × 48 · 20 Hz · 1.0 s old"));
}

void CameraStateTest::a_picture_grows_old()
{
    CameraState state = withPicture();
    QVERIFY(!state.isOld(start + 2s));
    QCOMPARE(state.problem(start + 2s), QString());
    QVERIFY(state.isOld(start + 2100ms));
    QCOMPARE(state.problem(start + 3s), QString("The picture is 3 s old."));
    QCOMPARE(state.caption(start + 3s), QString("64 × 48 · 3 s old"));
    QCOMPARE(state.problem(start + 5min), QString("The picture is 5 min old."));
    // It is one that comes no more, then.
    state.setOffered(Offered::Missing, "/eye", {});
    QCOMPARE(state.problem(start + 1s), QString());
    QVERIFY(state.problem(start + 3s).startsWith("The robot does not publish /eye."));
}

void CameraStateTest::one_that_cannot_be_read_is_said_until_the_next()
{
    CameraState state = withPicture();
    state.read(pictures::pictureMessage(QCborValue(QByteArray("GIF89a")), "gif"), start + 1s);
    QCOMPARE(state.problem(start + 1s),
             QString("A picture on /eye cannot be shown: the field \"data\" is neither JPEG nor "
                     "PNG; the robot calls it \"gif\"."));
    QCOMPARE(state.picture().size(), QSize(64, 48));
    QCOMPARE(state.caption(start + 1s), QString("64 × 48 · 1.0 s old"));
    state.read(pictures::pictureMessage(pictures::plain(32, 16)), start + 2s);
    QCOMPARE(state.problem(start + 2s), QString());
    QCOMPARE(state.picture().size(), QSize(32, 16));
}

void CameraStateTest::a_picture_stays_after_the_link_and_goes_with_the_next()
{
    CameraState state = withPicture();
    state.end();
    QCOMPARE(state.problem(start), QString("Not connected."));
    QVERIFY(!state.picture().isNull());
    QVERIFY(state.isOld(start)); // at once
    QCOMPARE(state.caption(start + 60s), QString("64 × 48 · 60 s old"));
    state.begin();
    QVERIFY(state.picture().isNull());
    QCOMPARE(state.caption(start), QString());
}

TEST_WITHOUT_WINDOWS(CameraStateTest)

} // namespace camera_state_test

#include "CameraStateTest.moc"
