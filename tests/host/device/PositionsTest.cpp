// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DeviceFixture.h"
#include "TestCase.h"

#include "olm/core/Vector.h"
#include "rosbridge/protocol/Angle.h"

#include <QCborArray>
#include <QtTest>

namespace positions_test {

using Fixture = DeviceFixture;
using host::device::Device;
using FloatVector = olm::core::Vector<float>;
using SizeVector = olm::core::Vector<unsigned int>;
using Kind = plugin::gui::VariableKind;

namespace {

/// axis0 to axis8 at 10, 20, ... 90.
QCborMap jointState(int axes = 9)
{
    QCborArray names;
    QCborArray positions;
    for (int axis = 0; axis < axes; ++axis) {
        names.append(QStringLiteral("axis%1").arg(axis));
        positions.append(rosbridge::protocol::toRadians(10.0 * (axis + 1)));
    }
    return {{QStringLiteral("name"), names}, {QStringLiteral("position"), positions}};
}

} // namespace

/// The arm's present pose, as a position among those that are stored.
class PositionsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void two_positions_are_there_to_begin_with();
    void the_present_pose_becomes_a_position_and_is_kept();
    void a_position_is_stored_in_one_transaction_and_counted_last();
    void the_first_position_gets_the_usual_speeds();
    void speeds_that_are_missing_are_the_usual_ones();
    void no_position_is_stored_beyond_the_last();
    void no_position_is_stored_before_all_axes_are_known();
    void a_pose_is_of_the_present_connection();
    void a_bad_joint_state_is_said_once_and_the_pose_stays();
    void a_joint_that_is_none_of_the_arms_is_ignored();
    void a_foreign_arm_is_stored_by_its_own_joints();
    void a_pose_is_forgotten_with_the_joints_it_was_read_by();
};

void PositionsTest::two_positions_are_there_to_begin_with()
{
    const Fixture f;
    QCOMPARE(f.config<int>("num_pos"), 2);
    QCOMPARE(f.config<int>("num_pos_max"), 16);
    QCOMPARE(f.config<FloatVector>("pos0").size(), 18U);
    QCOMPARE(f.config<FloatVector>("pos1").size(), 18U);
    QCOMPARE(f.config<std::string>("pos0_name"), std::string("Pos1"));
    QCOMPARE(f.config<std::string>("pos1_name"), std::string("Pos2"));
    for (const char* line : {"line0_enabled", "line1_enabled", "line2_enabled"})
        QVERIFY(f.config<bool>(line));
    QVERIFY(!f.config<bool>("disableDriveSystem"));
    const SizeVector resolution = f.config<SizeVector>("camera_resolution");
    QCOMPARE(resolution.size(), 2U);
    QCOMPARE(resolution[0], 640U);
    QCOMPARE(resolution[1], 480U);
}

void PositionsTest::the_present_pose_becomes_a_position_and_is_kept()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    FloatVector previous(18);
    previous[1] = 5.0F;
    previous[17] = 77.0F;
    f.probe->writeConfigVariable("pos1", previous);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QVERIFY(f.hears("1001 The arm's position was stored as Pos3."));

    TestEnvironment environment;
    const Device restarted("robot", f.folder.path(), environment);
    for (const Device* device : {&std::as_const(f.device), &restarted}) {
        QCOMPARE(device->read(Kind::Config, "num_pos").get<int>(), 3);
        QCOMPARE(device->read(Kind::Config, "pos2_name").get<std::string>(), std::string("Pos3"));
        const auto stored = device->read(Kind::Config, "pos2").get<FloatVector>();
        QCOMPARE(stored.size(), 18U);
        QCOMPARE(stored[0], 10.0F);
        QCOMPARE(stored[1], 5.0F);
        QCOMPARE(stored[16], 90.0F);
        QCOMPARE(stored[17], 77.0F);
    }
}

void PositionsTest::a_position_is_stored_in_one_transaction_and_counted_last()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    QStringList writes;
    host::device::variables::Variables& variables = f.device.variables();
    connect(&variables, &host::device::variables::Variables::touched, &variables,
            [&](const host::device::variables::Variables::Key& key) {
                QVERIFY(variables.isInTransaction());
                writes << QString::fromStdString(key.second);
            });
    f.exec(1007);
    QVERIFY(!variables.isInTransaction());
    QCOMPARE(writes, QStringList({"pos2", "pos2_name", "num_pos"}));
}

void PositionsTest::the_first_position_gets_the_usual_speeds()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("num_pos", 0);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 1);
    QCOMPARE(f.config<FloatVector>("pos0")[0], 10.0F);
    QCOMPARE(f.config<FloatVector>("pos0")[1], 30.0F);
    QCOMPARE(f.config<FloatVector>("pos0")[17], 30.0F);
}

void PositionsTest::speeds_that_are_missing_are_the_usual_ones()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    FloatVector previous(3); // axis0 with its speed, and half of axis1
    previous[1] = 5.0F;
    f.probe->writeConfigVariable("pos1", previous);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    const auto stored = f.config<FloatVector>("pos2");
    QCOMPARE(stored.size(), 18U);
    QCOMPARE(stored[1], 5.0F);
    for (int speed = 3; speed < 18; speed += 2)
        QCOMPARE(stored[speed], 30.0F);
}

void PositionsTest::no_position_is_stored_beyond_the_last()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("num_pos", 16);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QVERIFY(f.hears("1001 The arm's position was not stored: all 16 positions are in use. Remove "
                    "one and try again."));
    QCOMPARE(f.config<int>("num_pos"), 16);
    QVERIFY(f.device.read(Kind::Config, "pos16").isEmpty());
}

void PositionsTest::no_position_is_stored_before_all_axes_are_known()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState(8));
    QVERIFY(f.settle());
    f.exec(1007);
    QVERIFY(f.hears("1001 The arm's position was not stored: the positions of some axes are "
                    "unknown. Connect to a robot with an arm and try again."));
    QCOMPARE(f.config<int>("num_pos"), 2);
}

void PositionsTest::a_pose_is_of_the_present_connection()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    QVERIFY(f.probe->disconnectDevice());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 2);
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState(1));
    QVERIFY(f.settle());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 2);
}

void PositionsTest::a_bad_joint_state_is_said_once_and_the_pose_stays()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCborMap bad = jointState();
    bad.insert(QLatin1String("position"), QCborArray{1});
    f.robot.publish("/joint_states", jointState());
    f.robot.publish("/joint_states", bad);
    f.robot.publish("/joint_states", bad);
    QVERIFY(f.settle());
    QCOMPARE(
        f.count("1001 A message on the topic /joint_states was ignored: the field \"position\" "
                "has 1 numbers for 9 names."),
        1);
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 3);
}

void PositionsTest::a_joint_that_is_none_of_the_arms_is_ignored()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCborMap wheels = jointState(1);
    wheels.insert(QLatin1String("name"), QCborArray{QStringLiteral("wheel")});
    f.robot.publish("/joint_states", jointState());
    f.robot.publish("/joint_states", wheels);
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("1001 "), QStringList());
    f.exec(1007);
    QCOMPARE(f.config<FloatVector>("pos2")[0], 10.0F);
}

void PositionsTest::a_foreign_arm_is_stored_by_its_own_joints()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.device.joints().set(2, {"lift", host::device::readers::JointTable::Unit::Metres, true, 300});
    for (int axis = 3; axis < 9; ++axis)
        f.device.joints().set(axis, {});
    f.robot.publish("/joint_states", {{"name", QCborArray{"wheel", "axis1", "lift", "axis0"}},
                                      {"position", QCborArray{7, 0, 0.1, 1.5707963}}});
    QVERIFY(f.settle());
    f.exec(1007);
    const FloatVector stored = f.config<FloatVector>("pos2");
    QCOMPARE(stored.size(), 18U);
    QCOMPARE(stored[0], 90.0F);
    QCOMPARE(stored[2], 0.0F);
    QCOMPARE(stored[4], 200.0F); // millimetres
    QCOMPARE(stored[6], 0.0F);   // has no joint
}

void PositionsTest::a_pose_is_forgotten_with_the_joints_it_was_read_by()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    using Unit = host::device::readers::JointTable::Unit;
    f.device.joints().set(0, {"axis0", Unit::Degrees, true, 0}); // read so from now on
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 2);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 3);
}

TEST_WITH_WINDOWS(PositionsTest)

} // namespace positions_test

#include "PositionsTest.moc"
