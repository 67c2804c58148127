// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "BaseTab.h"
#include "TestCase.h"
#include "Throws.h"

#include <QtTest>

#include <stdexcept>
#include <string>

namespace base_dialog_resolution_test {

/// The list of camera resolutions in the base tab.
class BaseDialogResolutionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_resolution_of_the_device_is_selected_data();
    void the_resolution_of_the_device_is_selected();
    void without_a_resolution_the_list_stays_as_it_is_data();
    void without_a_resolution_the_list_stays_as_it_is();
    void the_list_is_filled_once_a_resolution_is_known();
    void only_the_simulator_trigger_rebuilds_the_list();
    void a_picked_resolution_is_written_data();
    void a_picked_resolution_is_written();
    void a_host_that_throws_leaves_the_list_working();
};

void BaseDialogResolutionTest::the_resolution_of_the_device_is_selected_data()
{
    QTest::addColumn<QList<unsigned int>>("resolution");
    QTest::addColumn<bool>("simulator");
    QTest::addColumn<int>("expected");
    const auto row = [](const char* name, const QList<unsigned int>& resolution, bool simulator,
                        int expected) {
        QTest::newRow(name) << resolution << simulator << expected;
    };
    row("small", {320, 240}, false, 0);
    row("medium", {640, 480}, false, 1);
    row("medium, simulated", {640, 480}, true, 1);
    row("large", {1024, 768}, false, 0);
    row("large, simulated", {1024, 768}, true, 2);
    row("small width, medium height", {320, 480}, true, 0);
    row("medium width, small height", {640, 240}, true, 0);
    row("large width, other height", {1024, 480}, true, 0);
    row("other width, large height", {640, 768}, true, 0);
    row("unknown", {1, 2}, true, 0);
    row("zero", {0, 0}, false, 0);
    row("a width alone", {640}, true, 0);
    row("the largest width alone", {1024}, true, 0);
    row("a zero alone", {0}, true, 0);
    row("a third number", {640, 480, 7}, false, 1);
}

void BaseDialogResolutionTest::the_resolution_of_the_device_is_selected()
{
    QFETCH(QList<unsigned int>, resolution);
    QFETCH(bool, simulator);
    QFETCH(int, expected);
    // Exactly as many elements of storage as there are numbers, for the sanitizers.
    olm::core::Vector<unsigned int> value(static_cast<unsigned int>(resolution.size()));
    for (int i = 0; i < resolution.size(); ++i)
        value[i] = resolution[i];

    const Tab tab(value, simulator);
    QCOMPARE(tab.resolutions(), simulator ? simulated : real);
    QCOMPARE(tab.selector().currentIndex(), expected);

    tab.selector().blockSignals(true);
    tab.selector().setCurrentIndex(1 - expected % 2);
    tab.selector().blockSignals(false);
    change(const_cast<FakeHost&>(tab.host), Kind::State, "connectedToSimulator", simulator);
    QCOMPARE(tab.resolutions(), simulator ? simulated : real);
    QCOMPARE(tab.selector().currentIndex(), expected);
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogResolutionTest::without_a_resolution_the_list_stays_as_it_is_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("empty") << 0;
    QTest::newRow("an empty any") << 1;
    QTest::newRow("no elements") << 2;
    QTest::newRow("floats") << 3;
    QTest::newRow("a text") << 4;
    QTest::newRow("a number") << 5;
}

void BaseDialogResolutionTest::without_a_resolution_the_list_stays_as_it_is()
{
    QFETCH(int, kind);
    const Variant wrong[] = {
        Variant(), boost::any(), size({}), olm::core::Vector<float>(2), std::string("640x480"), 640,
    };
    Tab tab(wrong[kind]);
    QCOMPARE(tab.selector().count(), 0);

    change(tab.host, Kind::Config, "camera_resolution", size({640, 480}));
    change(tab.host, Kind::State, "connectedToSimulator", false);
    QCOMPARE(tab.resolutions(), real);
    tab.host.set(Kind::Config, "camera_resolution", wrong[kind]);
    change(tab.host, Kind::State, "connectedToSimulator", true);
    QCOMPARE(tab.resolutions(), real);
    QCOMPARE(tab.selector().currentIndex(), 1);
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogResolutionTest::the_list_is_filled_once_a_resolution_is_known()
{
    Tab tab;
    QCOMPARE(tab.selector().count(), 0);
    change(tab.host, Kind::State, "connectedToSimulator", true);
    QCOMPARE(tab.selector().count(), 0);
    change(tab.host, Kind::Config, "camera_resolution", size({1024, 768}));
    QCOMPARE(tab.selector().count(), 0);
    change(tab.host, Kind::State, "connectedToSimulator", true);
    QCOMPARE(tab.resolutions(), simulated);
    QCOMPARE(tab.selector().currentIndex(), 2);
    QCOMPARE(tab.selector().itemData(2), QVariant());
    QVERIFY(tab.selector().itemIcon(2).isNull());
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogResolutionTest::only_the_simulator_trigger_rebuilds_the_list()
{
    Tab tab(size({320, 240}));
    change(tab.host, Kind::Config, "camera_resolution", size({640, 480}));
    QCOMPARE(tab.selector().currentIndex(), 0);

    // The value in the bundle is not the one that counts.
    tab.host.set(Kind::State, "connectedToSimulator", true);
    plugin::gui::HistoryBundleContent content;
    content.insert(Kind::State, "connectedToSimulator", Variant());
    deliver(tab.host, content);
    QCOMPARE(tab.resolutions(), simulated);
    QCOMPARE(tab.selector().currentIndex(), 1);

    tab.host.set(Kind::State, "connectedToSimulator", std::string("neither"));
    deliver(tab.host, content);
    QCOMPARE(tab.resolutions(), real);
    QVERIFY(tab.writes().isEmpty());
}

void BaseDialogResolutionTest::a_picked_resolution_is_written_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("index");
    QTest::addColumn<unsigned int>("width");
    QTest::addColumn<unsigned int>("height");
    QTest::newRow("first") << 1 << 0 << 320U << 240U;
    QTest::newRow("second") << 0 << 1 << 640U << 480U;
    QTest::newRow("third") << 0 << 2 << 1024U << 768U;
    QTest::newRow("one beyond") << 1 << 3 << 320U << 240U;
    QTest::newRow("none") << 1 << -1 << 320U << 240U;
}

void BaseDialogResolutionTest::a_picked_resolution_is_written()
{
    QFETCH(int, from);
    QFETCH(int, index);
    QFETCH(unsigned int, width);
    QFETCH(unsigned int, height);
    Tab tab(from == 0 ? size({320, 240}) : size({640, 480}), true);
    tab.selector().addItem("one more");
    QVERIFY(tab.writes().isEmpty());

    tab.selector().setCurrentIndex(index);
    QCOMPARE(tab.writes(), QStringList("write config camera_resolution"));
    const auto written = tab.host.variables[{Kind::Config, "camera_resolution"}]
                             .get<olm::core::Vector<unsigned int>>();
    const olm::core::Vector<unsigned int>& numbers = written;
    QCOMPARE(numbers.size(), 2U);
    QCOMPARE(numbers[0], width);
    QCOMPARE(numbers[1], height);
}

void BaseDialogResolutionTest::a_host_that_throws_leaves_the_list_working()
{
    Tab tab(size({640, 480}));
    tab.host.throwAt = "read state connectedToSimulator";
    QVERIFY(throws<std::runtime_error>(
        [&tab] { change(tab.host, Kind::State, "connectedToSimulator", true); }));
    tab.host.throwAt.clear();
    QCOMPARE(tab.resolutions(), real);
    tab.selector().setCurrentIndex(0);
    QCOMPARE(tab.writes(), QStringList("write config camera_resolution"));
}

TEST_WITH_WINDOWS(BaseDialogResolutionTest)

} // namespace base_dialog_resolution_test

#include "BaseDialogResolutionTest.moc"
