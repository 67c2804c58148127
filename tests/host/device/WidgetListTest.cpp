// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "Probe.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "plugin/gui/DeviceHistoryBundle.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>
#include <stdexcept>

namespace widget_list_test {

using host::device::Device;
using plugin::gui::DeviceDelegate;
using plugin::gui::DeviceHistoryBundle;
using plugin::gui::DeviceWidget;
using Kind = plugin::gui::VariableKind;

namespace {

Probe* load(Device& device, const Factory::Build& build)
{
    return dynamic_cast<Probe*>(device.loadWidget(Factory(build), "toolbar"));
}

std::unique_ptr<Probe> loadProbe(Device& device)
{
    return std::unique_ptr<Probe>(
        load(device, [](const char*, const char*, DeviceDelegate& delegate) {
            return new Probe(delegate);
        }));
}

} // namespace

/// Which widgets are notified, whatever the others do meanwhile. The list is that of a device,
/// as widgets are built on nothing else.
class WidgetListTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_factory_is_asked_for_the_widget_by_the_devices_name();
    void no_widget_is_null();
    void all_that_was_built_is_translated_once_after_construction();
    void an_exception_of_a_constructor_passes_through_and_leaves_nothing();
    void widgets_in_widgets_are_notified_too();
    void a_new_language_reaches_every_widget();
    void a_widget_built_by_another_is_translated_and_then_notified();
    void an_event_loop_in_a_constructor_does_not_reach_the_half_built_widget();
    void a_widget_deleted_in_mid_delivery_gets_nothing_data();
    void a_widget_deleted_in_mid_delivery_gets_nothing();
    void widgets_built_in_mid_delivery_get_the_next_one();
    void a_handler_that_throws_stops_nobody_else();
    void a_handler_that_deletes_its_widget_and_throws_is_named();
    void an_event_loop_in_a_handler_delivers_on();
    void two_devices_do_not_hear_each_other();

private:
    QTemporaryDir m_folder;
    TestEnvironment m_environment;
};

void WidgetListTest::the_factory_is_asked_for_the_widget_by_the_devices_name()
{
    Device device("robot", m_folder.path(), m_environment);
    QStringList asked;
    const Factory factory([&](const char* name, const char* widget, DeviceDelegate& delegate) {
        asked << name << widget;
        return new Probe(delegate);
    });
    const std::unique_ptr<DeviceWidget> widget(device.loadWidget(factory, "toolbar"));
    QVERIFY(widget);
    QCOMPARE(asked, QStringList({"vendor name", "toolbar"}));
}

void WidgetListTest::no_widget_is_null()
{
    Device device("robot", m_folder.path(), m_environment);
    const Factory factory([](const char*, const char*, DeviceDelegate&) { return nullptr; });
    QVERIFY(!device.loadWidget(factory, "dialog"));
}

void WidgetListTest::all_that_was_built_is_translated_once_after_construction()
{
    Device device("robot", m_folder.path(), m_environment);
    QStringList duringConstruction;
    Probe* inner = nullptr;
    const std::unique_ptr<Probe> outer(
        load(device, [&](const char*, const char*, DeviceDelegate& delegate) {
            auto* const probe = new Probe(delegate);
            inner = new Probe(delegate, probe);
            duringConstruction = probe->calls + inner->calls;
            return probe;
        }));
    QCOMPARE(duringConstruction, QStringList());
    QCOMPARE(outer->calls, QStringList("translate"));
    QCOMPARE(inner->calls, QStringList("translate"));
    QCoreApplication::processEvents();
    QCOMPARE(outer->calls, QStringList("translate"));
    QCOMPARE(inner->calls, QStringList("translate"));
}

void WidgetListTest::an_exception_of_a_constructor_passes_through_and_leaves_nothing()
{
    class Thrower : public Probe
    {
    public:
        explicit Thrower(DeviceDelegate& delegate) : Probe(delegate)
        {
            new Probe(delegate, this);
            throw std::runtime_error("no display");
        }
    };

    Device device("robot", m_folder.path(), m_environment);
    const Factory factory([](const char*, const char*, DeviceDelegate& delegate) -> DeviceWidget* {
        return new Thrower(delegate);
    });
    QString reason;
    try {
        device.loadWidget(factory, "toolbar");
    } catch (const std::runtime_error& error) {
        reason = error.what();
    }
    QCOMPARE(reason, QString("no display"));
    device.translateWidgets(); // the sanitizer would see a call of what is gone
    QCoreApplication::processEvents();
    const auto probe = loadProbe(device);
    QCOMPARE(probe->calls, QStringList("translate"));
}

void WidgetListTest::widgets_in_widgets_are_notified_too()
{
    Device device("robot", m_folder.path(), m_environment);
    Probe* innermost = nullptr;
    const std::unique_ptr<Probe> outer(
        load(device, [&](const char*, const char*, DeviceDelegate& delegate) {
            auto* const probe = new Probe(delegate);
            auto* const plain = new QWidget(probe);
            innermost = new Probe(delegate, plain);
            return probe;
        }));
    device.registerInput("a", true);
    device.write(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(innermost->count("update"), 1, patience);
    QCOMPARE(outer->count("update"), 1);
}

void WidgetListTest::a_new_language_reaches_every_widget()
{
    Device device("robot", m_folder.path(), m_environment);
    const auto first = loadProbe(device);
    const auto second = loadProbe(device);
    device.translateWidgets();
    QCOMPARE(first->count("translate"), 2);
    QCOMPARE(second->count("translate"), 2);
}

void WidgetListTest::a_widget_built_by_another_is_translated_and_then_notified()
{
    Device device("robot", m_folder.path(), m_environment);
    const auto first = loadProbe(device);
    device.registerInput("a", true);
    std::unique_ptr<Probe> second;
    first->onUpdate = [&](const DeviceHistoryBundle&) {
        if (!second)
            second = std::make_unique<Probe>(device);
    };
    device.write(Kind::Input, "a", 1);
    QTRY_VERIFY_WITH_TIMEOUT(second && !second->calls.isEmpty(), patience);
    QCOMPARE(second->calls, QStringList("translate"));
    device.write(Kind::Input, "a", 2);
    QTRY_COMPARE_WITH_TIMEOUT(second->calls, QStringList({"translate", "update"}), patience);
}

void WidgetListTest::an_event_loop_in_a_constructor_does_not_reach_the_half_built_widget()
{
    Device device("robot", m_folder.path(), m_environment);
    const auto other = loadProbe(device);
    device.registerInput("a", true);
    QStringList duringConstruction;
    const std::unique_ptr<Probe> probe(
        load(device, [&](const char*, const char*, DeviceDelegate& delegate) {
            auto* const halfBuilt = new Probe(delegate);
            device.write(Kind::Input, "a", 1);
            QEventLoop loop;
            other->onUpdate = [&](const DeviceHistoryBundle&) { loop.quit(); };
            loop.exec();
            device.translateWidgets();
            duringConstruction = halfBuilt->calls;
            return halfBuilt;
        }));
    other->onUpdate = {};
    QCOMPARE(duringConstruction, QStringList());
    QCOMPARE(other->calls, QStringList({"translate", "update", "translate"}));
    QCOMPARE(probe->calls, QStringList("translate"));
}

void WidgetListTest::a_widget_deleted_in_mid_delivery_gets_nothing_data()
{
    QTest::addColumn<int>("deleter");
    QTest::addColumn<int>("deleted");
    for (int deleter = 0; deleter < 3; ++deleter) {
        for (int deleted = 0; deleted < 3; ++deleted)
            QTest::addRow("%d deletes %d", deleter, deleted) << deleter << deleted;
    }
}

void WidgetListTest::a_widget_deleted_in_mid_delivery_gets_nothing()
{
    QFETCH(const int, deleter);
    QFETCH(const int, deleted);
    Device device("robot", m_folder.path(), m_environment);
    std::unique_ptr<Probe> probes[] = {loadProbe(device), loadProbe(device), loadProbe(device)};
    QStringList order;
    for (int i = 0; i < 3; ++i) {
        probes[i]->onTranslate = [&, i] {
            order << QString::number(i);
            if (i == deleter)
                probes[deleted].reset();
        };
    }
    device.translateWidgets();
    QStringList expected{"0", "1", "2"};
    if (deleted > deleter)
        expected.removeAt(deleted);
    QCOMPARE(order, expected);

    order.clear();
    device.translateWidgets();
    expected = QStringList{"0", "1", "2"};
    expected.removeAt(deleted);
    QCOMPARE(order, expected);
}

void WidgetListTest::widgets_built_in_mid_delivery_get_the_next_one()
{
    Device device("robot", m_folder.path(), m_environment);
    const auto first = loadProbe(device);
    const auto last = loadProbe(device);
    std::vector<std::unique_ptr<Probe>> built;
    device.registerInput("a", true);
    first->onUpdate = [&](const DeviceHistoryBundle&) {
        first->onUpdate = {};
        for (int i = 0; i < 100; ++i) // the list has to grow
            built.push_back(loadProbe(device));
    };
    device.write(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(last->count("update"), 1, patience);
    QCOMPARE(built.size(), std::size_t(100));
    for (const auto& probe : built)
        QCOMPARE(probe->calls, QStringList("translate"));
    device.write(Kind::Input, "a", 2);
    QTRY_COMPARE_WITH_TIMEOUT(last->count("update"), 2, patience);
    for (const auto& probe : built)
        QCOMPARE(probe->calls, QStringList({"translate", "update"}));
}

void WidgetListTest::a_handler_that_throws_stops_nobody_else()
{
    Device device("robot", m_folder.path(), m_environment);
    const auto first = loadProbe(device);
    const auto second = loadProbe(device);
    const auto third = loadProbe(device);
    const QSignalSpy problems(&device, &Device::problem);
    first->onUpdate = [](const DeviceHistoryBundle&) { throw std::runtime_error("no memory"); };
    second->onUpdate = [](const DeviceHistoryBundle&) { throw 7; };
    const QRegularExpression standard("Probe::update threw an exception: no memory");
    const QRegularExpression other("Probe::update threw an exception: not a std::exception");
    QTest::ignoreMessage(QtWarningMsg, standard); // fails where there is none
    QTest::ignoreMessage(QtWarningMsg, other);
    expectWarning(standard.pattern());
    expectWarning(other.pattern());
    device.registerInput("a", true);
    device.write(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(third->count("update"), 1, patience);
    QTRY_COMPARE_WITH_TIMEOUT(problems.size(), 1, patience); // once for one function
    QVERIFY2(problems[0][0].toString().contains("Probe::update threw an exception: no memory."),
             qPrintable(problems[0][0].toString()));
    first->onUpdate = {};
    second->onUpdate = {};
    device.write(Kind::Input, "a", 2);
    QTRY_COMPARE_WITH_TIMEOUT(third->count("update"), 2, patience);
    QCOMPARE(first->count("update"), 2);
    QCOMPARE(second->count("update"), 2);
}

void WidgetListTest::a_handler_that_deletes_its_widget_and_throws_is_named()
{
    Device device("robot", m_folder.path(), m_environment);
    auto first = loadProbe(device);
    const auto second = loadProbe(device);
    first->onTranslate = [&] {
        first.reset();
        throw std::runtime_error("gone");
    };
    const QRegularExpression warning("Probe::translate threw an exception: gone");
    QTest::ignoreMessage(QtWarningMsg, warning);
    expectWarning(warning.pattern());
    device.translateWidgets();
    QVERIFY(!first);
    QCOMPARE(second->count("translate"), 2);
}

void WidgetListTest::an_event_loop_in_a_handler_delivers_on()
{
    Device device("robot", m_folder.path(), m_environment);
    const auto first = loadProbe(device);
    auto second = loadProbe(device);
    const auto third = loadProbe(device);
    device.registerInput("a", true);
    first->onUpdate = [&](const DeviceHistoryBundle&) {
        first->onUpdate = {};
        device.write(Kind::Input, "a", 2);
        QEventLoop loop;
        third->onUpdate = [&](const DeviceHistoryBundle&) {
            third->onUpdate = {};
            second.reset(); // within the inner delivery: the outer one is to skip it too
            loop.quit();
        };
        loop.exec();
    };
    device.write(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(third->count("update"), 2, patience);
    QCOMPARE(first->count("update"), 2);
    QVERIFY(!second);
}

void WidgetListTest::two_devices_do_not_hear_each_other()
{
    Device device("robot", m_folder.path(), m_environment);
    Device other("other", m_folder.path(), m_environment);
    const auto probe = loadProbe(device);
    const auto others = loadProbe(other);
    device.registerInput("a", true);
    other.registerInput("a", true);
    device.registerInput("b", true);
    device.write(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(probe->count("update"), 1, patience);
    device.translateWidgets();
    QVERIFY(other.read(Kind::Input, "a").isEmpty());
    other.write(Kind::Input, "b", 1); // registered on the first device only
    other.write(Kind::Input, "a", 2);
    bool hasCarriedB = true;
    others->onUpdate = [&](const DeviceHistoryBundle& bundle) {
        hasCarriedB = bundle.getInputHistory("b") != nullptr;
    };
    QTRY_COMPARE_WITH_TIMEOUT(others->calls, QStringList({"translate", "update"}), patience);
    QVERIFY(!hasCarriedB);
    QCOMPARE(probe->count("update"), 1);
}

TEST_WITH_WINDOWS(WidgetListTest)

} // namespace widget_list_test

#include "WidgetListTest.moc"
