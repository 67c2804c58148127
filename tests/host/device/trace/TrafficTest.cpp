// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "Throws.h"
#include "tests/host/device/Probe.h"

#include "host/device/Device.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/trace/ClassName.h"
#include "host/device/trace/TracedCall.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <stdexcept>

namespace traffic_test {

using host::device::Device;
using host::device::trace::Arguments;
using host::device::trace::className;
using host::device::trace::PluginCall;
using host::device::trace::TracedCall;
using host::device::trace::Traffic;
using plugin::gui::DeviceDelegate;
using Kind = plugin::gui::VariableKind;
using Variant = olm::core::variant::Variant;

namespace {

QString words(const Variant& value)
{
    bool isText = false;
    const QString text = value.get<QString>(&isText);
    return isText ? text : QString::fromStdString(value.toString());
}

/// As in "  Probe/name > read(a) = 1": indented within another call.
QString words(const PluginCall& call)
{
    QString text = QString(2 * call.depth, ' ');
    if (call.widgetClass)
        text += className(*call.widgetClass);
    if (!call.widgetName.isEmpty())
        text += '/' + call.widgetName;
    text += call.direction == PluginCall::Direction::ToHost ? " > " : " < ";
    QStringList arguments;
    for (const auto& argument : *call.arguments) {
        const QString name = QString::fromStdString(argument.name);
        arguments += (name.isEmpty() ? QString() : name + ": ") + words(argument.value);
    }
    text += QLatin1String(call.name) + '(' + arguments.join(", ") + ')';
    if (call.result)
        text += " = " + words(*call.result);
    return text;
}

QStringList words(const Traffic& traffic)
{
    QStringList all;
    for (Traffic::Number i = traffic.begin(); i < traffic.end(); ++i)
        all += words(*traffic.call(i));
    return all;
}

PluginCall callNamed(const char* name, Arguments arguments = {})
{
    return {PluginCall::Direction::ToHost, name, nullptr,
            std::make_shared<const Arguments>(std::move(arguments))};
}

std::unique_ptr<Probe> loadProbe(Device& device)
{
    const Factory factory([](const char*, const char*, DeviceDelegate& delegate) {
        delegate.registerInput("a", true);
        auto* probe = new Probe(delegate);
        probe->setObjectName("name");
        probe->readInput("a");
        return probe;
    });
    return std::unique_ptr<Probe>(dynamic_cast<Probe*>(device.loadWidget(factory, "toolbar")));
}

} // namespace

/// The calls between a device and its widgets, as developers see them.
class TrafficTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_a_widget_does_while_it_is_built_is_within_its_construction();
    void a_construction_that_throws_is_noted();
    void each_call_of_a_widget_is_noted_and_passed_on();
    void each_notification_is_noted();
    void a_handler_that_throws_is_noted();
    void a_call_lasts_until_it_returns();
    void a_call_above_50_milliseconds_is_too_long();
    void the_newest_calls_are_kept();
    void large_calls_are_kept_up_to_a_bound_data();
    void large_calls_are_kept_up_to_a_bound();
    void a_value_of_many_calls_is_counted_once();
    void of_a_huge_value_only_its_size_is_kept();
    void numbers_go_on_after_clearing();
    void a_variable_knows_the_widget_that_wrote_it();

private:
    QTemporaryDir m_folder;
    TestEnvironment m_environment;
    Device m_device{"robot", m_folder.path(), m_environment};
    Traffic& m_traffic = m_device.traffic();
};

void TrafficTest::what_a_widget_does_while_it_is_built_is_within_its_construction()
{
    m_traffic.clear();
    const auto probe = loadProbe(m_device);
    QCOMPARE(words(m_traffic),
             QStringList({" < loadDeviceWidget(device: vendor name, widget: toolbar) = Probe",
                          "   > registerInput(a, true)",
                          "  Probe/name > readInput(a) = ", "Probe/name < translate()"}));
}

void TrafficTest::a_construction_that_throws_is_noted()
{
    m_traffic.clear();
    const Factory factory([](const char*, const char*, DeviceDelegate&) -> Probe* {
        throw std::runtime_error("no");
    });
    QVERIFY(throws<std::runtime_error>([&] { m_device.loadWidget(factory, "dialog"); }));
    QCOMPARE(int(m_traffic.end() - m_traffic.begin()), 1);
    QVERIFY(m_traffic.call(m_traffic.begin())->hasThrown);
}

void TrafficTest::each_call_of_a_widget_is_noted_and_passed_on()
{
    expectWarning("does not know the command with the role");
    const auto probe = loadProbe(m_device);
    m_traffic.clear();
    probe->writeOutput("b", 1);
    QCOMPARE(probe->readOutput("b").get<int>(), 1);
    probe->writeStateVariable("c", 2);
    probe->readStateVariable("c");
    probe->setConfigVariableProperty("d", "unit", QString("m"));
    QCOMPARE(probe->getConfigVariableProperty("d", "unit").get<QString>(), QString("m"));
    probe->beginTransaction("Set d");
    probe->endTransaction();
    probe->disconnectDevice();
    probe->simulationDirectExec(SimulationDirectExecRole(7), true);
    QCOMPARE(probe->trans("text"), QString("TEXT"));
    QCOMPARE(probe->currentLanguage(), QString("de"));
    QCOMPARE(probe->helpAction("base"), &m_environment.action);
    QCOMPARE(words(m_traffic), QStringList({
                                   "Probe/name > writeOutput(b, 1)",
                                   "Probe/name > readOutput(b) = 1",
                                   "Probe/name > writeStateVariable(c, 2)",
                                   "Probe/name > readStateVariable(c) = 2",
                                   "Probe/name > setConfigVariableProperty(d, unit, m)",
                                   "Probe/name > getConfigVariableProperty(d, unit) = m",
                                   "Probe/name > beginTransaction(Set d)",
                                   "Probe/name > endTransaction()",
                                   "Probe/name > disconnectDevice() = false",
                                   "Probe/name > simulationDirectExec(, true) = ",
                                   "Probe/name > trans(text) = TEXT",
                                   "Probe/name > currentLanguage() = de",
                                   "Probe/name > helpAction(base) = base",
                               }));
}

void TrafficTest::each_notification_is_noted()
{
    const auto probe = loadProbe(m_device);
    m_traffic.clear();
    probe->onUpdate = [&](const auto&) { probe->readInput("a"); };
    m_device.variables().set(Kind::Input, "a", 5);
    QTRY_COMPARE_WITH_TIMEOUT(
        words(m_traffic),
        QStringList({"Probe/name < update(a: 5)", "  Probe/name > readInput(a) = 5"}), patience);

    m_traffic.clear();
    m_device.translateWidgets();
    m_device.overrideAddress("no address");
    QVERIFY(!m_device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(m_traffic.end() - m_traffic.begin(), Traffic::Number(3), patience);
    const QStringList calls = words(m_traffic);
    QCOMPARE(calls[0], QString("Probe/name < translate()"));
    QCOMPARE(calls[1], QString("Probe/name < on_messageReceived(role: 1005, value: -1)"));
    QVERIFY2(calls[2].startsWith("Probe/name < on_messageReceived(role: 1004, value: "),
             qPrintable(calls[2]));
}

void TrafficTest::a_handler_that_throws_is_noted()
{
    expectWarning("Probe::translate threw an exception: no");
    const auto probe = loadProbe(m_device);
    m_traffic.clear();
    m_device.translateWidgets();
    QVERIFY(!m_traffic.call(m_traffic.begin())->hasThrown);
    probe->onTranslate = [] { throw std::runtime_error("no"); };
    m_device.translateWidgets();
    QVERIFY(m_traffic.call(m_traffic.end() - 1)->hasThrown);
    QVERIFY(m_traffic.call(m_traffic.end() - 1)->duration);
}

void TrafficTest::a_call_lasts_until_it_returns()
{
    using namespace std::chrono_literals;
    const auto probe = loadProbe(m_device);
    m_traffic.clear();
    std::shared_ptr<const PluginCall> call;
    bool isUnderWay = false;
    probe->onTranslate = [&] {
        call = m_traffic.call(m_traffic.begin());
        isUnderWay = !call->duration;
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 3) {
        }
    };
    m_device.translateWidgets();
    QVERIFY(isUnderWay);
    QVERIFY(call->duration);
    QVERIFY(*call->duration >= 3ms);
    QVERIFY(*call->duration < std::chrono::milliseconds(patience));
}

void TrafficTest::a_call_above_50_milliseconds_is_too_long()
{
    using namespace std::chrono_literals;
    PluginCall call = callNamed("a");
    QVERIFY(!call.isTooLong());
    call.duration = 50ms;
    QVERIFY(!call.isTooLong());
    call.duration = 50ms + 1ns;
    QVERIFY(call.isTooLong());
}

void TrafficTest::the_newest_calls_are_kept()
{
    Traffic traffic;
    int changes = 0;
    connect(&traffic, &Traffic::changed, this, [&changes] { ++changes; });
    for (std::size_t i = 0; i < Traffic::capacity; ++i)
        const TracedCall call(traffic, callNamed("old"));
    QCOMPARE(traffic.begin(), Traffic::Number(0));
    {
        const TracedCall call(traffic, callNamed("outer"));
        const TracedCall inner(traffic, callNamed("inner"));
    }
    QCOMPARE(changes, 2 * (int(Traffic::capacity) + 2)); // each began and ended
    QCOMPARE(traffic.begin(), Traffic::Number(2));
    QCOMPARE(traffic.end(), Traffic::Number(Traffic::capacity + 2));
    QCOMPARE(words(*traffic.call(2)), QString(" > old()"));
    QCOMPARE(words(*traffic.call(traffic.end() - 2)), QString(" > outer()"));
    QCOMPARE(words(*traffic.call(traffic.end() - 1)), QString("   > inner()"));
}

void TrafficTest::large_calls_are_kept_up_to_a_bound_data()
{
    QTest::addColumn<bool>("isResult");
    QTest::newRow("arguments") << false;
    QTest::newRow("results") << true;
}

void TrafficTest::large_calls_are_kept_up_to_a_bound()
{
    QFETCH(const bool, isResult);
    constexpr std::size_t size = 512 * 1024;
    constexpr std::size_t most = Traffic::mostBytes / size;
    Traffic traffic;
    for (int round = 0; round < 2; ++round) { // the second one with what the first one left
        for (std::size_t i = 0; i < 10 * most; ++i) {
            const std::string large(size, 'x');
            TracedCall call(traffic, isResult ? callNamed("large")
                                              : callNamed("large", {{"", Variant(large)}}));
            if (isResult)
                call.answer(large);
        }
        const std::size_t count = traffic.end() - traffic.begin();
        QVERIFY2(count < most && count > most / 2, qPrintable(QString::number(count)));
        for (std::size_t i = 0; i < Traffic::capacity; ++i)
            const TracedCall call(traffic, callNamed("small"));
        QCOMPARE(traffic.end() - traffic.begin(), Traffic::Number(Traffic::capacity));
    }
    traffic.clear();
    QCOMPARE(traffic.begin(), traffic.end());
}

void TrafficTest::a_value_of_many_calls_is_counted_once()
{
    constexpr Traffic::Number count = 100;
    Traffic traffic;
    const auto shared = std::make_shared<const Arguments>(
        Arguments{{"", std::string(Traffic::largestValue / 2, 'x')}});
    for (Traffic::Number i = 0; i < count; ++i)
        const TracedCall call(traffic,
                              {PluginCall::Direction::ToPlugin, "update", nullptr, shared});
    QCOMPARE(traffic.end() - traffic.begin(), count);
}

void TrafficTest::of_a_huge_value_only_its_size_is_kept()
{
    const std::string huge(Traffic::mostBytes, 'x');
    Traffic traffic;
    {
        const TracedCall before(traffic, callNamed("before"));
    }
    {
        TracedCall call(traffic, callNamed("huge", {{"value", huge}, {"other", 7}}));
        QCOMPARE(call.answer(huge).size(), huge.size()); // the caller gets all of it
    }
    QCOMPARE(traffic.begin(), Traffic::Number(0));
    const PluginCall& call = *traffic.call(1);
    QVERIFY(call.arguments->at(0).value.get<QString>().contains("bytes"));
    QCOMPARE(call.arguments->at(0).name, std::string("value"));
    QCOMPARE(call.arguments->at(1).value.get<int>(), 7);
    QVERIFY(call.result->get<QString>().contains("bytes"));
}

void TrafficTest::numbers_go_on_after_clearing()
{
    Traffic traffic;
    {
        const TracedCall call(traffic, callNamed("a")); // ends when it is no longer kept
        traffic.clear();
        QCOMPARE(traffic.begin(), Traffic::Number(1));
        QCOMPARE(traffic.end(), Traffic::Number(1));
    }
    const TracedCall call(traffic, callNamed("b"));
    QCOMPARE(traffic.end(), Traffic::Number(2));
    QCOMPARE(words(*traffic.call(1)), QString(" > b()"));
}

void TrafficTest::a_variable_knows_the_widget_that_wrote_it()
{
    const auto probe = loadProbe(m_device);
    probe->writeInput("w", 1);
    const auto& variables = m_device.variables();
    QCOMPARE(variables.find({Kind::Input, "w"})->writer, QString("Probe"));
    m_device.variables().set(Kind::Input, "w", 2);
    QCOMPARE(variables.find({Kind::Input, "w"})->writer, QString());
}

TEST_WITH_WINDOWS(TrafficTest)

} // namespace traffic_test

#include "TrafficTest.moc"
