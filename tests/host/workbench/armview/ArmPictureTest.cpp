// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/armview/ArmPicture.h"
#include "host/workbench/armview/ArmShape.h"

#include <QtTest>

#include <cmath>

namespace arm_picture_test {

using namespace host::workbench::armview;
using host::device::readers::JointTable;

namespace {

const QColor outline(0xe8, 0x6a, 0x17);

/// How many pixels are of that colour.
int count(const ArmPicture& picture, const QColor& colour)
{
    const QImage image = const_cast<ArmPicture&>(picture).grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

ArmPlaces places(float each)
{
    ArmPlaces places;
    places.fill(each);
    return places;
}

bool isNear(const QPointF& one, const QPointF& other)
{
    return std::hypot(one.x() - other.x(), one.y() - other.y()) < 1e-3;
}

} // namespace

/// How the arm is drawn.
class ArmPictureTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_arm_stands_straight_at_zero();
    void each_axis_turns_what_comes_after_it();
    void a_sliding_axis_makes_its_link_longer();
    void the_arm_is_solid_and_the_target_an_outline();
    void an_arm_that_is_not_known_is_not_drawn();
};

void ArmPictureTest::the_arm_stands_straight_at_zero()
{
    for (const auto& places : {ArmPlaces(), arm_picture_test::places(0)}) {
        const QPolygonF shape = armShape(places, {});
        QCOMPARE(int(shape.size()), 10);
        for (int link = 0; link <= 9; ++link)
            QVERIFY(isNear(shape.at(link), QPointF(0, link)));
    }
}

void ArmPictureTest::each_axis_turns_what_comes_after_it()
{
    ArmPlaces places;
    places[1] = 90;
    const QPolygonF shape = armShape(places, {});
    QVERIFY(isNear(shape.at(1), QPointF(0, 1)));
    QVERIFY(isNear(shape.at(2), QPointF(-1, 1)));
    QVERIFY(isNear(shape.at(9), QPointF(-8, 1)));
}

void ArmPictureTest::a_sliding_axis_makes_its_link_longer()
{
    JointTable joints;
    joints.setJoint(0, {"lift", JointTable::Unit::Metres, false, 0});
    ArmPlaces places;
    places[0] = 300;
    QVERIFY(isNear(armShape(places, joints).at(1), QPointF(0, 2)));
    places[0] = 1e30F; // stays in sight
    QVERIFY(isNear(armShape(places, joints).at(1), QPointF(0, 5)));
    places[0] = -1e30F;
    QVERIFY(isNear(armShape(places, joints).at(1), QPointF(0, 0.1)));
}

void ArmPictureTest::the_arm_is_solid_and_the_target_an_outline()
{
    ArmPicture picture;
    picture.resize(300, 200);
    const QPolygonF present = armShape(places(0), {});
    const QPolygonF target = armShape(places(20), {});
    const QColor solid = picture.palette().color(QPalette::Highlight);
    const QColor old = picture.palette().color(QPalette::Disabled, QPalette::Text);
    picture.setShapes(present, target, false);
    QVERIFY(count(picture, solid) > 100);
    QVERIFY(count(picture, outline) > 20);
    picture.setShapes(present, target, true);
    QCOMPARE(count(picture, solid), 0);
    QVERIFY(count(picture, old) > 100);
    picture.setShapes(present, {}, false);
    QCOMPARE(count(picture, outline), 0);
}

void ArmPictureTest::an_arm_that_is_not_known_is_not_drawn()
{
    ArmPicture picture;
    picture.resize(300, 200);
    const QColor ground = picture.palette().color(QPalette::Base);
    QCOMPARE(count(picture, ground), 300 * 200);
    picture.setShapes({}, {}, true);
    QCOMPARE(count(picture, ground), 300 * 200);
}

TEST_WITH_WINDOWS(ArmPictureTest)

} // namespace arm_picture_test

#include "ArmPictureTest.moc"
