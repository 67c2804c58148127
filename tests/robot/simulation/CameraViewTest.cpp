// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/CameraView.h"
#include "TestCase.h"

#include <QtTest>

#include <cmath>

namespace camera_view_test {

using namespace robot::simulation;

namespace {

CameraInfo lens(const char* resolution = "640x480")
{
    Camera camera;
    camera.setResolution(QLatin1String(resolution), Time(0), nullptr);
    return camera.takeFrame(Time(0)).value();
}

void drive(World& world, const Twist& twist, int steps)
{
    world.setRobotTwist(twist);
    for (int i = 0; i < steps; ++i)
        world.step();
}

/// A picture, and the lens that it was taken with.
struct Scene
{
    CameraInfo info;
    QImage picture;

    /// What is seen @p ahead and @p aside to the right, in metres, and @p up above the floor.
    QColor at(double ahead, double aside, double up) const
    {
        const double column = info.K[2] + info.K[0] * aside / ahead;
        const double row = info.K[5] + info.K[4] * (Camera::mountHeight - up) / ahead;
        return picture.pixelColor(static_cast<int>(std::lround(column)),
                                  static_cast<int>(std::lround(row)));
    }
};

/// The robot stands in the corridor and looks along it, at a person in a red shirt. Beside and
/// behind that person is the corridor's end.
Scene corridor()
{
    const World world(1);
    const CameraInfo info = lens();
    return {info, CameraView(world, info).picture()};
}

constexpr double eye_x = FloorPlan::robotStart.x + Camera::mount.x;
constexpr double toEnd = FloorPlan::width - 0.2 - eye_x;

double toPerson()
{
    return FloorPlan::people().front().x - eye_x;
}

bool isRed(const QColor& colour)
{
    return colour.red() > 2 * colour.blue() && colour.red() > 2 * colour.green();
}

/// The colour of walls; floor and ceiling are bluish.
bool isWarm(const QColor& colour)
{
    return colour.red() > colour.blue() + 5;
}

bool isWood(const QColor& colour)
{
    return colour.red() > 2 * colour.blue() && colour.red() < 2 * colour.green();
}

bool isCool(const QColor& colour)
{
    return colour.blue() > colour.red();
}

} // namespace

/// CameraView: what the camera sees, and where in the picture.
class CameraViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_picture_has_the_size_of_its_resolution_data();
    void a_picture_has_the_size_of_its_resolution();
    void a_wall_ends_where_floor_and_ceiling_begin();
    void a_person_stands_in_front_of_the_wall();
    void what_is_far_away_is_darker();
    void furniture_does_not_hide_what_is_higher_behind_it();
    void a_wall_right_before_the_lens_fills_the_picture();
    void people_move_in_the_picture();
};

void CameraViewTest::a_picture_has_the_size_of_its_resolution_data()
{
    QTest::addColumn<QString>("resolution");
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << "320x240" << QSize(320, 240);
    QTest::newRow("middle") << "640x480" << QSize(640, 480);
    QTest::newRow("large") << "1024x768" << QSize(1024, 768);
}

void CameraViewTest::a_picture_has_the_size_of_its_resolution()
{
    QFETCH(QString, resolution);
    QFETCH(QSize, size);
    const World world(1);
    const QByteArray name = resolution.toLatin1();
    QCOMPARE(CameraView(world, lens(name.constData())).picture().size(), size);
}

void CameraViewTest::a_wall_ends_where_floor_and_ceiling_begin()
{
    const Scene scene = corridor();
    const double aside = 0.6; // past the person
    QVERIFY(isWarm(scene.at(toEnd, aside, 0.2)));
    QVERIFY(isWarm(scene.at(toEnd, aside, FloorPlan::ceiling - 0.1)));
    QVERIFY(isCool(scene.at(toEnd, aside, -0.1)));
    QVERIFY(isCool(scene.at(toEnd, aside, FloorPlan::ceiling + 0.1)));
    QVERIFY(isCool(scene.picture.pixelColor(320, 479)));
    QVERIFY(isCool(scene.picture.pixelColor(320, 0)));
}

void CameraViewTest::a_person_stands_in_front_of_the_wall()
{
    const Scene scene = corridor();
    QVERIFY(isRed(scene.at(toPerson(), 0.0, 1.1)));
    QVERIFY(isRed(scene.at(toPerson(), 0.15, 1.1)));
    QVERIFY(!isRed(scene.at(toPerson(), 0.25, 1.1)));
    QVERIFY(isCool(scene.at(toPerson(), 0.1, 0.5)));  // trousers
    QVERIFY(isWarm(scene.at(toPerson(), 0.0, 1.6)));  // a face
    QVERIFY(isCool(scene.at(toPerson(), 0.17, 1.6))); // the ceiling beside it
    QVERIFY(scene.at(toPerson(), 0.0, 1.72).lightness() <
            scene.at(toPerson(), 0.0, 1.6).lightness()); // hair
}

void CameraViewTest::what_is_far_away_is_darker()
{
    const Scene scene = corridor();
    QVERIFY(scene.picture.pixelColor(320, 0).lightness() >
            scene.picture.pixelColor(250, 120).lightness() + 10);
}

void CameraViewTest::furniture_does_not_hide_what_is_higher_behind_it()
{
    World world(1);
    drive(world, {0.5, 0.0}, 940);
    drive(world, {0.0, pi / 2.0}, 100); // through a door, at a table
    Pose2D eye = fromFrame(world.robotPose(), Camera::mount);
    const double toTable = 6.2 - eye.y;
    const double toWall = FloorPlan::height - 0.2 - eye.y;
    for (int i = 0; i < 3000 && world.castThrough(eye, 5.0).size() != 2; ++i)
        drive(world, {}, 1); // until nobody is in the way
    eye = fromFrame(world.robotPose(), Camera::mount);
    const CameraInfo info = lens();
    const Scene scene{info, CameraView(world, info).picture()};
    QVERIFY(isWood(scene.at(toTable, 0.0, 0.3)));
    QVERIFY(!isWood(scene.at(toTable, 0.0, 0.8)));
    QVERIFY(isWarm(scene.at(toWall, 0.0, 1.5)));
}

void CameraViewTest::a_wall_right_before_the_lens_fills_the_picture()
{
    World world(1);
    drive(world, {0.0, pi / 2.0}, 100);
    drive(world, {0.5, 0.0}, 200);
    const QImage picture = CameraView(world, lens("320x240")).picture();
    for (const int row : {0, 119, 120, 239}) {
        for (const int column : {0, 160, 319})
            QVERIFY(isWarm(picture.pixelColor(column, row)));
    }
}

void CameraViewTest::people_move_in_the_picture()
{
    World world(1);
    const QImage first = CameraView(world, lens()).picture();
    QCOMPARE(CameraView(world, lens()).picture(), first);
    drive(world, {}, 100);
    QVERIFY(CameraView(world, lens()).picture() != first);
}

TEST_WITHOUT_WINDOWS(CameraViewTest)

} // namespace camera_view_test

#include "CameraViewTest.moc"
