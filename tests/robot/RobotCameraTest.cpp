// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Watcher.h"

#include "robot/Robot.h"

#include <QCborArray>
#include <QImage>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace robot_camera_test {

using robot::Robot;
using rosbridge::client::Client;

namespace {

const QString imageTopic = QStringLiteral("/camera/image_raw/compressed");
const QString imageType = QStringLiteral("sensor_msgs/CompressedImage");
const QString infoTopic = QStringLiteral("/camera/camera_info");
const QString infoType = QStringLiteral("sensor_msgs/CameraInfo");

/// A robot and a client of it.
struct Scene
{
    bool open()
    {
        QString error;
        if (!robot.listen({QStringLiteral("127.0.0.1"), 0}, &error))
            return false;
        watcher = std::make_unique<Watcher>(robot.port());
        return QTest::qWaitFor([this] { return watcher->isOpen(); }, patience);
    }

    /// The newest message of a topic, once there is one.
    QCborMap last(const QString& topic)
    {
        QVector<QCborMap>& received = watcher->messages[topic];
        if (!QTest::qWaitFor([&received] { return !received.isEmpty(); }, patience))
            return {};
        return received.last();
    }

    Robot robot{1};
    std::unique_ptr<Watcher> watcher;
};

QByteArray bytesOf(const QCborMap& image)
{
    const QCborValue data = image.value(QLatin1String("data"));
    return data.isString() ? QByteArray::fromBase64(data.toString().toLatin1())
                           : data.toByteArray();
}

} // namespace

/// The pictures of the robot's camera, as a client gets them.
class RobotCameraTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_picture_is_a_jpeg_in_text_as_in_binary();
    void a_picture_has_the_header_of_its_camera_info();
    void a_picture_has_the_resolution_that_was_picked();
};

void RobotCameraTest::a_picture_is_a_jpeg_in_text_as_in_binary()
{
    Scene scene;
    QVERIFY(scene.open());
    Watcher binary(scene.robot.port());
    QTRY_VERIFY_WITH_TIMEOUT(binary.isOpen(), patience);
    binary.subscribe(imageTopic, imageType, Client::Compression::Cbor);
    scene.watcher->subscribe(imageTopic, imageType);
    const QCborMap text = scene.last(imageTopic);
    QTRY_VERIFY_WITH_TIMEOUT(!binary.messages[imageTopic].isEmpty(), patience);
    const QCborMap bytes = binary.messages[imageTopic].last();
    QVERIFY(text.value(QLatin1String("data")).isString());
    QVERIFY(bytes.value(QLatin1String("data")).isByteArray());
    for (const QCborMap& image : {text, bytes}) {
        QCOMPARE(image.value(QLatin1String("format")).toString(), QStringLiteral("jpeg"));
        QImage picture;
        QVERIFY(picture.loadFromData(bytesOf(image), "jpeg"));
        QCOMPARE(picture.size(), QSize(640, 480));
        const QColor floor = picture.pixelColor(320, 479);
        QVERIFY(floor.blue() > floor.red() + 5);
    }
}

void RobotCameraTest::a_picture_has_the_header_of_its_camera_info()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.watcher->subscribe(infoTopic, infoType);
    scene.watcher->subscribe(imageTopic, imageType);
    const QCborValue header = scene.last(imageTopic).value(QLatin1String("header"));
    QCOMPARE(header[QLatin1String("frame_id")].toString(), QStringLiteral("camera_optical_frame"));
    const auto isTwin = [&header](const QCborMap& info) {
        return info.value(QLatin1String("header")) == header;
    };
    const QVector<QCborMap>& infos = scene.watcher->messages[infoTopic];
    QTRY_VERIFY_WITH_TIMEOUT(std::any_of(infos.begin(), infos.end(), isTwin), patience);
}

void RobotCameraTest::a_picture_has_the_resolution_that_was_picked()
{
    Scene scene;
    QVERIFY(scene.open());
    const QCborMap parameter{{QStringLiteral("name"), QStringLiteral("video_mode")},
                             {QStringLiteral("value"), QStringLiteral("320x240")}};
    scene.watcher->call("/control/acquire");
    scene.watcher->call(
        "/camera/set_parameters",
        {{QStringLiteral("config"), QCborMap{{QStringLiteral("strs"), QCborArray{parameter}}}}});
    QTRY_COMPARE_WITH_TIMEOUT(scene.watcher->answers.size(), 2, patience);
    QVERIFY(scene.watcher->answers.last().ok);
    scene.watcher->subscribe(imageTopic, imageType, Client::Compression::Cbor);
    QCOMPARE(QImage::fromData(bytesOf(scene.last(imageTopic)), "jpeg").size(), QSize(320, 240));
}

TEST_WITHOUT_WINDOWS(RobotCameraTest)

} // namespace robot_camera_test

#include "RobotCameraTest.moc"
