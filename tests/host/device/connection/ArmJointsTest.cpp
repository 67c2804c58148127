// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/connection/ArmJoints.h"

#include <QCborArray>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

namespace arm_joints_test {

using host::device::connection::ArmJoints;
using host::device::readers::JointPositions;
using host::device::readers::JointTable;
using Unit = JointTable::Unit;

namespace {

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

QStringList inOrder(const ArmJoints& joints)
{
    QStringList names;
    for (int axis = 0; axis < JointTable::axisCount; ++axis)
        names.append(joints.table().joint(axis).name);
    while (!names.isEmpty() && names.last().isEmpty())
        names.removeLast();
    return names;
}

QStringList own()
{
    return inOrder(ArmJoints());
}

} // namespace

/// Which joints of a robot are the arm's axes: entered, guessed or our own.
class ArmJointsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void our_own_robot_needs_no_guess();
    void the_joints_of_another_arm_are_taken_in_their_order();
    void wheels_and_grippers_are_no_axes();
    void trajectories_know_the_order_along_the_arm();
    void up_to_nine_are_axes_and_the_rest_is_said();
    void joints_that_are_told_of_in_turn_are_taken_together();
    void what_is_entered_goes_before_the_guess_and_is_kept();
    void the_next_robot_is_guessed_anew();
    void standard_again_is_kept_too();
    void a_file_that_is_wrong_is_said_and_not_used();
    void no_end_of_joints_takes_bounded_room();
    void positions_become_degrees_and_millimetres();
    void what_is_no_position_is_refused();
};

void ArmJointsTest::our_own_robot_needs_no_guess()
{
    ArmJoints joints;
    QCOMPARE(own().size(), 9);
    joints.seePresent({"torso", "axis0", "axis1"});
    QCOMPARE(inOrder(joints), own());
    QCOMPARE(joints.notShown(), QStringList("torso"));
}

void ArmJointsTest::the_joints_of_another_arm_are_taken_in_their_order()
{
    ArmJoints joints;
    QSignalSpy changes(&joints, &ArmJoints::changed);
    joints.seePresent({"shoulder", "elbow", "wrist"});
    QCOMPARE(inOrder(joints), QStringList({"shoulder", "elbow", "wrist"}));
    QCOMPARE(joints.table().joint(0).unit, Unit::Radians);
    QCOMPARE(changes.count(), 1);
    joints.seePresent({"wrist", "elbow", "shoulder"});
    QCOMPARE(inOrder(joints), QStringList({"shoulder", "elbow", "wrist"}));
    QCOMPARE(changes.count(), 1);
}

void ArmJointsTest::wheels_and_grippers_are_no_axes()
{
    ArmJoints joints;
    joints.seePresent({"left_wheel_joint", "Front_Caster", "left_gripper_finger"});
    QCOMPARE(inOrder(joints), own()); // there is nothing to guess from
    joints.seePresent({"left_wheel_joint", "elbow", "gripper"});
    QCOMPARE(inOrder(joints), QStringList("elbow"));
    QCOMPARE(joints.notShown(), QStringList());
}

void ArmJointsTest::trajectories_know_the_order_along_the_arm()
{
    ArmJoints joints;
    joints.seePresent({"elbow", "shoulder", "torso", "wrist"});
    joints.seeTargets({"shoulder", "elbow", "wrist"});
    QCOMPARE(inOrder(joints), QStringList({"shoulder", "elbow", "wrist", "torso"}));
}

void ArmJointsTest::up_to_nine_are_axes_and_the_rest_is_said()
{
    ArmJoints joints;
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names.append(QString("joint_%1").arg(i));
    joints.seePresent(names);
    QCOMPARE(inOrder(joints), names.mid(0, 9));
    QCOMPARE(joints.notShown(), names.mid(9));
}

void ArmJointsTest::joints_that_are_told_of_in_turn_are_taken_together()
{
    ArmJoints joints;
    QSignalSpy told(&joints, &ArmJoints::told);
    for (int i = 0; i < 10; ++i) {
        joints.seePresent({"shoulder", "elbow"});
        joints.seePresent({"torso"});
    }
    QCOMPARE(inOrder(joints), QStringList({"shoulder", "elbow", "torso"}));
    QCOMPARE(told.count(), 2);
}

void ArmJointsTest::what_is_entered_goes_before_the_guess_and_is_kept()
{
    const QTemporaryDir folder;
    const ArmJoints::Joint lift{"lift", Unit::Metres, true, 12.5};
    {
        ArmJoints joints;
        QCOMPARE(joints.load(folder.path(), "Trial"), QString());
        joints.seePresent({"shoulder", "elbow", "lift"});
        joints.set(1, lift);
        QCOMPARE(inOrder(joints), QStringList({"shoulder", "lift", "lift"}));
    }
    ArmJoints joints;
    QCOMPARE(joints.load(folder.path(), "Trial"), QString());
    QVERIFY(joints.table().joint(1) == lift);
    joints.seePresent({"wrist"});
    QCOMPARE(inOrder(joints), QStringList({"shoulder", "lift", "lift"}));
    QCOMPARE(joints.notShown(), QStringList("wrist"));
}

void ArmJointsTest::the_next_robot_is_guessed_anew()
{
    ArmJoints joints;
    joints.seePresent({"shoulder"});
    joints.seeTargets({"elbow"});
    joints.forgetRobot();
    QCOMPARE(inOrder(joints), own());
    QVERIFY(joints.seen().isEmpty());
    joints.seePresent({"joint1", "joint2"});
    QCOMPARE(inOrder(joints), QStringList({"joint1", "joint2"}));
}

void ArmJointsTest::standard_again_is_kept_too()
{
    const QTemporaryDir folder;
    for (int i = 0; i < 2; ++i) {
        ArmJoints joints;
        QCOMPARE(joints.load(folder.path(), "Trial"), QString());
        QCOMPARE(inOrder(joints), own());
        joints.set(0, {"shoulder", {}, {}, {}});
        QCOMPARE(joints.table().joint(0).name, QString("shoulder"));
        joints.reset();
        QCOMPARE(inOrder(joints), own());
    }
}

void ArmJointsTest::a_file_that_is_wrong_is_said_and_not_used()
{
    const QTemporaryDir folder;
    {
        ArmJoints joints;
        joints.load(folder.path(), "Trial");
        joints.set(0, {"shoulder", {}, {}, {}});
    }
    QFile file(folder.filePath("Trial.joints"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QByteArray content = file.readAll();
    QVERIFY(content.contains("\"rad\""));
    file.resize(0);
    file.write(QByteArray(content).replace("\"rad\"", "\"miles\""));
    file.close();
    ArmJoints joints;
    const QString problem = joints.load(folder.path(), "Trial");
    QVERIFY2(problem.contains("axis0") && problem.contains("Trial.joints"), qPrintable(problem));
    QCOMPARE(inOrder(joints), own());
}

void ArmJointsTest::no_end_of_joints_takes_bounded_room()
{
    ArmJoints joints;
    for (int i = 0; i < 3000; ++i)
        joints.seePresent({QString("joint_%1").arg(i)});
    QCOMPARE(joints.seen().size(), JointPositions::mostJoints);
}

void ArmJointsTest::positions_become_degrees_and_millimetres()
{
    JointTable table(QStringList{"shoulder", "elbow", "lift"});
    table.setJoint(1, {"elbow", Unit::Degrees, true, 90});
    table.setJoint(2, {"lift", Unit::Metres, false, -100});
    QString fault;
    const auto axes =
        table.axes({{"lift", "shoulder", "elbow", "wheel"}, {0.25F, 0.5235988F, 30, 7}}, &fault);
    QVERIFY2(axes, qPrintable(fault));
    QCOMPARE(*axes->at(0), 30.0F);
    QCOMPARE(*axes->at(1), 60.0F);
    QCOMPARE(*axes->at(2), 150.0F);
    QVERIFY(!axes->at(3));
}

void ArmJointsTest::what_is_no_position_is_refused()
{
    const JointTable table(QStringList{"shoulder"});
    QString fault;
    QVERIFY(table.axes({{"wheel", "shoulder"}, {noNumber, 1}}, &fault));
    QCOMPARE(fault, QString());
    QVERIFY(!table.axes({{"shoulder"}, {noNumber}}, &fault));
    QVERIFY2(fault.contains("shoulder"), qPrintable(fault));

    QCborArray names;
    for (int i = 0; i <= JointPositions::mostJoints; ++i)
        names.append(QString::number(i));
    fault.clear();
    QVERIFY(!JointPositions::readPresent({{QString("name"), names}, {QString("position"), names}},
                                         &fault));
    QVERIFY2(fault.contains("1001") && fault.contains("1000"), qPrintable(fault));
}

TEST_WITHOUT_WINDOWS(ArmJointsTest)

} // namespace arm_joints_test

#include "ArmJointsTest.moc"
