// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "Pictures.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/robotview/DockOfRobot.h"

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/camera/CameraDock.h"
#include "host/workbench/camera/PictureView.h"

#include <QCborArray>
#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

namespace camera_dock_test {

using namespace host::workbench::camera;
using namespace pictures;
using ros_types::Ros;

namespace {

const char* const topic = "/camera/image_raw/compressed";
const char* const type = "sensor_msgs/CompressedImage";

struct CameraWorkbench : DockOfRobot<CameraDock>
{
    using DockOfRobot::DockOfRobot;

    PictureView& view() const { return *part<PictureView>("picture"); }

    QString words() const { return view().accessibleDescription(); }

    QString caption() const { return part<QLabel>("caption")->text(); }

    QColor middle() const
    {
        const QImage image = view().grab().toImage();
        return image.pixelColor(image.width() / 2, image.height() / 2);
    }
};

bool isRed(const QColor& colour)
{
    return colour.red() > 240 && colour.green() < 15 && colour.blue() < 15;
}

/// A robot with pictures under the name of @p topic.
struct CameraRobot : FakeRobot
{
    explicit CameraRobot(const char* topic = camera_dock_test::topic,
                         const char* type = camera_dock_test::type)
    {
        obey();
        answer("/rosapi/topics", {{"topics", QCborArray{topic}}, {"types", QCborArray{type}}});
    }
};

} // namespace

/// The dock with a robot, and without one.
class CameraDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_hidden_at_first_and_follows_nothing();
    void it_follows_while_it_is_shown();
    void a_picture_is_shown_in_its_own_proportions();
    void the_simulated_robots_pictures_are_shown();
    void pictures_of_robots_of_both_generations_are_shown_data();
    void pictures_of_robots_of_both_generations_are_shown();
    void an_old_picture_is_dimmed_and_says_so();
    void it_says_what_is_missing();
    void a_topic_is_followed_by_the_robots_name_for_it();
    void a_picture_that_cannot_be_read_is_told_as_it_is();
    void no_more_pictures_are_decoded_than_can_be_seen();
    void it_may_go_at_any_time();
};

void CameraDockTest::it_is_hidden_at_first_and_follows_nothing()
{
    CameraRobot robot;
    CameraWorkbench workbench(robot.address());
    QVERIFY(!workbench.dock->isVisible());
    workbench.join();
    workbench.waitForRobot();
    QCOMPARE(robot.subscriberCount(topic, type), 0);
    for (const QTimer* timer : workbench.dock->findChildren<QTimer*>())
        QVERIFY(!timer->isActive());
}

void CameraDockTest::it_follows_while_it_is_shown()
{
    CameraRobot robot;
    CameraWorkbench workbench(robot.address());
    workbench.dock->show();
    for (int link = 0; link < 2; ++link) {
        workbench.join();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 1, patience);
        workbench.dock->hide();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 0, patience);
        workbench.dock->show();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 1, patience);
        workbench.dock->hide();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 0, patience);
        QVERIFY(workbench.device.disconnectDevice());
        workbench.dock->show();
        QTRY_COMPARE_WITH_TIMEOUT(workbench.words(), QString("Not connected."), patience);
    }
    // Bytes, and no more of them than people see.
    QCOMPARE(robot.lastSubscription(topic).value(QLatin1String("compression")).toString(),
             QString("cbor"));
    QCOMPARE(robot.lastSubscription(topic).value(QLatin1String("throttle_rate")).toInteger(), 33);
}

void CameraDockTest::a_picture_is_shown_in_its_own_proportions()
{
    CameraRobot robot;
    CameraWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 1, patience);
    QCOMPARE(workbench.words(), QString("Waiting for a picture on %1 …").arg(topic));
    robot.publish(topic, pictureMessage(plain(64, 32)));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.words(), QString(), patience);
    QVERIFY(isRed(workbench.middle()));
    const QRect place = workbench.view().pictureRect();
    QCOMPARE(place.width() / 2, place.height());
    QVERIFY(place.width() == workbench.view().width() ||
            place.height() == workbench.view().height());
    const QImage whole = workbench.view().grab().toImage();
    QCOMPARE(whole.pixelColor(place.left() + 1, place.top() - 2),
             workbench.view().palette().color(QPalette::Base));
    QVERIFY(isRed(whole.pixelColor(place.left() + 1, place.top() + 1)));
    QTRY_VERIFY_WITH_TIMEOUT(workbench.caption().startsWith("64 × 32 · "), patience);
}

void CameraDockTest::the_simulated_robots_pictures_are_shown()
{
    const host::workbench::EmbeddedRobot robot(0);
    CameraWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.words(), QString(), patience);
    // More than one colour: floor, walls and what stands there.
    const QImage picture = workbench.view().grab().toImage();
    QSet<QRgb> colours;
    const QRect place = workbench.view().pictureRect();
    for (int y = place.top(); y < place.bottom(); ++y)
        colours.insert(picture.pixel(place.center().x(), y));
    QVERIFY2(colours.size() > 10, qPrintable(QString::number(colours.size())));
    QTRY_VERIFY_WITH_TIMEOUT(workbench.caption().contains("Hz"), patience);
}

void CameraDockTest::pictures_of_robots_of_both_generations_are_shown_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::newRow("ROS 1") << Ros::One;
    QTest::newRow("ROS 2") << Ros::Two;
}

void CameraDockTest::pictures_of_robots_of_both_generations_are_shown()
{
    QFETCH(const Ros, ros);
    const char* const theirs = "/head/image/compressed";
    FakeRobot robot;
    robot.obey();
    robot.obeyRules(ros, {{theirs, type}});
    CameraWorkbench workbench(robot.address());
    QVERIFY(workbench.device.remappings().set(topic, theirs));
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(theirs, type), 1, patience);
    QCborArray bytes; // as such servers have it before they convert it
    for (const char byte : encoded(plain(64, 32), "JPEG"))
        bytes.append(static_cast<uchar>(byte));
    robot.publish(theirs, pictureMessage(bytes));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.words(), QString(), patience);
    QVERIFY(isRed(workbench.middle()));
}

void CameraDockTest::an_old_picture_is_dimmed_and_says_so()
{
    PictureView view;
    view.resize(200, 100);
    view.setPicture(plain(), false, QString());
    const auto corner = [&view] {
        const QRect place = view.pictureRect();
        return view.grab().toImage().pixelColor(place.left() + 2, place.top() + 2);
    };
    QVERIFY(isRed(corner()));
    view.setPicture(plain(), true, "The picture is 3 s old.");
    QVERIFY(!isRed(corner()));
    QVERIFY(corner() != view.palette().color(QPalette::Base));
    QCOMPARE(view.accessibleDescription(), QString("The picture is 3 s old."));
}

void CameraDockTest::it_says_what_is_missing()
{
    CameraRobot none("/scan", "sensor_msgs/LaserScan");
    CameraWorkbench first(none.address());
    first.dock->show();
    QCOMPARE(first.words(), QString("Not connected."));
    first.join();
    QTRY_VERIFY_WITH_TIMEOUT(
        first.words().startsWith(QString("The robot does not publish %1.").arg(topic)), patience);
    // It is found when it comes.
    none.answer("/rosapi/topics", {{"topics", QCborArray{topic}}, {"types", QCborArray{type}}});
    QTRY_COMPARE_WITH_TIMEOUT(none.subscriberCount(topic, type), 1, patience);

    CameraRobot other(topic, "sensor_msgs/Image");
    CameraWorkbench second(other.address());
    second.dock->show();
    second.join();
    QTRY_COMPARE_WITH_TIMEOUT(
        second.words(),
        QString("The robot publishes %1 as sensor_msgs/Image, not as %2.").arg(topic, type),
        patience);
    second.waitForRobot();
    QCOMPARE(other.subscriberCount(topic, type), 0);
}

void CameraDockTest::a_topic_is_followed_by_the_robots_name_for_it()
{
    CameraRobot robot("/front/image/compressed");
    CameraWorkbench workbench(robot.address());
    QVERIFY(workbench.device.remappings().set(topic, "/front/image/compressed"));
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/front/image/compressed", type), 1, patience);
    QCOMPARE(workbench.words(), QString("Waiting for a picture on /front/image/compressed …"));
}

void CameraDockTest::a_picture_that_cannot_be_read_is_told_as_it_is()
{
    CameraRobot robot;
    CameraWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 1, patience);
    robot.publish(topic, pictureMessage(QCborValue(QByteArray("GIF89a")), "<b>bold</b>"));
    QTRY_COMPARE_WITH_TIMEOUT(
        workbench.words(),
        QString("A picture on %1 cannot be shown: the field \"data\" is neither JPEG nor PNG; the "
                "robot calls it \"<b>bold</b>\".")
            .arg(topic),
        patience);
    robot.publish(topic, pictureMessage(plain()));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.words(), QString(), patience);
}

void CameraDockTest::no_more_pictures_are_decoded_than_can_be_seen()
{
    CameraRobot robot;
    CameraWorkbench workbench(robot.address());
    CameraFeed feed(workbench.device, nullptr);
    feed.setActive(true);
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 1, patience);
    QElapsedTimer timer;
    timer.start();
    const QSignalSpy shown(&feed, &CameraFeed::changed);
    constexpr int sent = 400;
    for (int i = 0; i < sent; ++i)
        robot.publish(topic, pictureMessage(plain(64, 48)));
    robot.publish(topic, pictureMessage(plain(32, 16)));
    // The newest is always shown.
    QTRY_COMPARE_WITH_TIMEOUT(feed.state().picture().size(), QSize(32, 16), patience);
    const auto most = 2 + timer.elapsed() / 33;
    QVERIFY2(shown.size() <= most, qPrintable(QString("%1 of %2").arg(shown.size()).arg(most)));
}

void CameraDockTest::it_may_go_at_any_time()
{
    CameraRobot robot;
    CameraWorkbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 1, patience);
    delete workbench.dock;
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount(topic, type), 0, patience);
    robot.publish(topic, pictureMessage(plain()));
    workbench.waitForRobot();
}

TEST_WITH_WINDOWS(CameraDockTest)

} // namespace camera_dock_test

#include "CameraDockTest.moc"
