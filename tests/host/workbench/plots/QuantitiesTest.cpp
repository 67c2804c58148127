// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PlotsFixture.h"
#include "TestCase.h"

#include "host/workbench/plots/Quantities.h"

#include <QSignalSpy>

namespace quantities_test {

using namespace plots_fixture;
using host::device::variables::Variables;

namespace {

const QString placeInWords = QStringLiteral("/odom: pose.pose.position.x");

struct Fixture : PlottedDevice
{
    Quantities quantities{device, nullptr};

    QStringList names()
    {
        QStringList names;
        for (const Quantity& quantity : quantities.all())
            names << quantity.inWords(device);
        return names;
    }

    /// The robot tells what it has until it was looked at.
    bool isFound(const QString& name)
    {
        robot.driveTo(0);
        robot.publish("/joint_states", message::jointStates({"axis0"}, {0}));
        return names().contains(name);
    }
};

} // namespace

/// Quantities: what there is to plot.
class QuantitiesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_fields_of_a_topic_are_found_by_one_message();
    void nothing_is_looked_at_while_nobody_chooses();
    void a_silent_topic_does_not_keep_the_others();
    void pictures_and_maps_are_not_looked_at();
    void variables_and_elements_are_quantities();
    void what_is_entered_is_found_by_its_words();
    void a_field_that_was_not_seen_can_be_entered();
    void a_mapped_topic_has_the_robots_name();
};

void QuantitiesTest::the_fields_of_a_topic_are_found_by_one_message()
{
    Fixture f;
    f.quantities.setActive(true);
    QVERIFY(f.names().contains("Axis 1: current"));
    QVERIFY(f.names().contains("Axis 9: target"));
    QVERIFY(!f.names().contains("/odom: rate"));
    f.join();
    QTRY_VERIFY_WITH_TIMEOUT(f.names().contains("/odom: rate"), patience);
    const QSignalSpy changed(&f.quantities, &Quantities::changed);
    QTRY_VERIFY_WITH_TIMEOUT(f.isFound(placeInWords), patience);
    QTRY_VERIFY_WITH_TIMEOUT(f.isFound("/joint_states: position[0]"), patience);
    QVERIFY(!f.names().contains("/joint_states: name[0]")); // a text
    QTRY_VERIFY_WITH_TIMEOUT(!changed.isEmpty(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 0, patience);
    QVERIFY(f.device.disconnectDevice());
    QVERIFY(f.names().contains(placeInWords)); // it may come back
}

void QuantitiesTest::nothing_is_looked_at_while_nobody_chooses()
{
    Fixture f;
    f.join();
    QCOMPARE(f.robot.subscribeCount(odometry), 0);
    f.quantities.setActive(true);
    // The first of them by name is silent; it is left as soon as nobody chooses any more.
    const auto followers = [&f] {
        return f.robot.followers() + f.robot.followers("/joint_states", "sensor_msgs/JointState");
    };
    const int others = 1; // the device's own
    QTRY_COMPARE_WITH_TIMEOUT(followers(), others + 1, patience);
    f.quantities.setActive(false);
    QTRY_COMPARE_WITH_TIMEOUT(followers(), others, patience);
    for (const QTimer* timer : f.quantities.findChildren<QTimer*>())
        QVERIFY(!timer->isActive());
}

void QuantitiesTest::a_silent_topic_does_not_keep_the_others()
{
    Fixture f;
    f.robot.offer({{"/a/silent/one", "std_msgs/Bool"}, {odometry, odometryType}});
    f.quantities.setActive(true);
    f.join();
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers("/a/silent/one", "std_msgs/Bool"), 1, patience);
    QCOMPARE(f.robot.followers(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 1, patience);
    QCOMPARE(f.robot.followers("/a/silent/one", "std_msgs/Bool"), 0);
    QTRY_VERIFY_WITH_TIMEOUT(f.isFound(placeInWords), patience);
}

void QuantitiesTest::pictures_and_maps_are_not_looked_at()
{
    Fixture f;
    f.robot.offer({{"/costs", "nav_msgs/OccupancyGrid"},
                   {"/eye", "sensor_msgs/Image"},
                   {odometry, odometryType}});
    f.quantities.setActive(true);
    f.join();
    QTRY_VERIFY_WITH_TIMEOUT(f.isFound(placeInWords), patience);
    QCOMPARE(f.robot.subscribeCount("/costs") + f.robot.subscribeCount("/eye"), 0);
    QVERIFY(f.names().contains("/eye: rate"));
}

void QuantitiesTest::variables_and_elements_are_quantities()
{
    Fixture f;
    f.quantities.setActive(true);
    const QSignalSpy changed(&f.quantities, &Quantities::changed);
    f.device.variables().set(Variables::Kind::Input, "load", 5.0F);
    f.device.variables().set(Variables::Kind::Input, "wheels", olm::core::Vector<float>(2));
    f.device.variables().set(Variables::Kind::State, "label", std::string("5"));
    QTRY_COMPARE_WITH_TIMEOUT(int(changed.size()), 1, patience);
    const QStringList names = f.names();
    QVERIFY(names.contains("load"));
    QVERIFY(names.contains("wheels[1]"));
    QVERIFY(names.filter("label").isEmpty());
}

void QuantitiesTest::what_is_entered_is_found_by_its_words()
{
    Fixture f;
    f.device.variables().set(Variables::Kind::Input, "load", 5.0F);
    const Quantity load{Kind::Variable, "load", {}, static_cast<int>(Variables::Kind::Input)};
    const Quantity target{Kind::Target, {}, {}, 2};
    QVERIFY(f.quantities.find("load") == load);
    QVERIFY(f.quantities.find("Axis 3: target") == target);
    for (const char* words : {"", "loa", "nothing", "/odom", "/odom: rate", "Axis 10: target"})
        QVERIFY2(!f.quantities.find(words), words);
    f.join();
    const Quantity rate{Kind::Rate, odometry, {}, 0};
    QVERIFY(f.quantities.find("/odom: rate") == rate);
}

void QuantitiesTest::a_field_that_was_not_seen_can_be_entered()
{
    Fixture f;
    f.join();
    QVERIFY(f.quantities.find(placeInWords) == place);
    QVERIFY(!f.quantities.find("/odom: "));
    QVERIFY(!f.quantities.find("/odometer: x"));
    QVERIFY(!f.quantities.find("/odom: " + QString(1000, 'x')));
}

void QuantitiesTest::a_mapped_topic_has_the_robots_name()
{
    Fixture f;
    f.robot.offer({{"/wheels/odom", odometryType}});
    QVERIFY(f.device.remappings().set(odometry, "/wheels/odom"));
    f.join();
    QVERIFY(f.quantities.find("/wheels/odom: pose.pose.position.x") == place);
    QVERIFY(f.names().contains("/wheels/odom: rate"));
    QCOMPARE(f.names().filter("/odom: rate").size(), 1);
}

TEST_WITH_WINDOWS(QuantitiesTest)

} // namespace quantities_test

#include "QuantitiesTest.moc"
