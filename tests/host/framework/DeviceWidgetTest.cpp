// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/DeviceWidget.h"

#include "TestCase.h"
#include "Throws.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/HistoryBundleContent.h"
#include "plugin/gui/HostCall.h"
#include "tests/src/FakeHost.h"

#include <QApplication>
#include <QtTest>

#include <memory>

namespace device_widget_test {

using plugin::gui::DeviceDelegate;
using plugin::gui::DeviceInterface;
using plugin::gui::DeviceWidget;

class DeviceWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void variables_are_read_and_written_by_kind_and_name();
    void properties_are_read_and_written_by_kind_and_name();
    void values_pass_unchanged_in_both_directions();
    void transactions_and_the_connection_are_the_hosts();
    void a_command_and_its_answer_pass_unchanged();
    void the_host_can_tell_which_widget_calls();
    void notifications_do_nothing_by_default();
    void a_widget_is_its_hosts_from_construction_to_destruction();
    void a_widget_leaves_its_host_before_its_parts_are_gone();
    void a_child_of_another_widget_is_notified_itself();
    void the_delegate_of_another_framework_is_refused();
    void a_host_that_refuses_a_widget_leaves_nothing();
};

namespace {

/// As a plugin builds one: on the delegate alone.
std::unique_ptr<DeviceWidget> widgetOn(DeviceDelegate& delegate, QWidget* parent = nullptr)
{
    return std::make_unique<DeviceWidget>(delegate, parent);
}

struct ForeignDelegate : DeviceDelegate
{
    void registerInput(const char*, bool) override {}
    void registerOutput(const char*, bool) override {}
    void registerStateVariable(const char*, bool) override {}
    void registerConfigVariable(const char*, bool) override {}
};

} // namespace

void DeviceWidgetTest::variables_are_read_and_written_by_kind_and_name()
{
    FakeHost host;
    const auto widget = widgetOn(host);
    DeviceInterface& device = *widget; // as the plugin's calls go: through the virtual table
    device.writeInput("a", 1);
    device.writeOutput("b", 2);
    device.writeStateVariable("c", 3);
    device.writeConfigVariable("d", 4);
    QCOMPARE(host.calls,
             (QStringList{"write input a", "write output b", "write state c", "write config d"}));
    host.calls.clear();
    QCOMPARE(device.readInput("a").toInt(), 1);
    QCOMPARE(device.readOutput("b").toInt(), 2);
    QCOMPARE(device.readStateVariable("c").toInt(), 3);
    QCOMPARE(device.readConfigVariable("d").toInt(), 4);
    QCOMPARE(host.calls,
             (QStringList{"read input a", "read output b", "read state c", "read config d"}));
    // Each kind has names of its own.
    QVERIFY(device.readInput("d").isEmpty());
    QVERIFY(device.readConfigVariable("a").isEmpty());
}

void DeviceWidgetTest::properties_are_read_and_written_by_kind_and_name()
{
    FakeHost host;
    const auto widget = widgetOn(host);
    DeviceInterface& device = *widget;
    device.setInputProperty("a", "unit", std::string("Hz"));
    device.setOutputProperty("b", "minimum", 2);
    device.setStateVariableProperty("c", "maximum", 3);
    device.setConfigVariableProperty("d", "step", 4);
    QCOMPARE(device.getInputProperty("a", "unit").toString(), std::string("Hz"));
    QCOMPARE(device.getOutputProperty("b", "minimum").toInt(), 2);
    QCOMPARE(device.getStateVariableProperty("c", "maximum").toInt(), 3);
    QCOMPARE(device.getConfigVariableProperty("d", "step").toInt(), 4);
    QCOMPARE(host.calls, (QStringList{"set property input a unit", "set property output b minimum",
                                      "set property state c maximum", "set property config d step",
                                      "property input a unit", "property output b minimum",
                                      "property state c maximum", "property config d step"}));
}

void DeviceWidgetTest::values_pass_unchanged_in_both_directions()
{
    FakeHost host;
    const auto widget = widgetOn(host);
    const Variant value(std::string("value"));
    widget->writeConfigVariable("name", value);
    QCOMPARE(host.writes.at(0).second.id(), value.id());
    QCOMPARE(widget->readConfigVariable("name").id(), value.id());
    QVERIFY(widget->readConfigVariable("another").isEmpty());
}

void DeviceWidgetTest::transactions_and_the_connection_are_the_hosts()
{
    FakeHost host;
    const auto widget = widgetOn(host);
    widget->beginTransaction(QString::fromUtf8("Name with blanks, ä"));
    widget->endTransaction();
    QVERIFY(widget->connectDevice());
    QVERIFY(widget->disconnectDevice());
    host.connectAnswer = false;
    QVERIFY(!widget->connectDevice());
    QVERIFY(!widget->disconnectDevice());
    QCOMPARE(host.calls, (QStringList{QString::fromUtf8("begin Name with blanks, ä"), "end",
                                      "connect", "disconnect", "connect", "disconnect"}));
}

void DeviceWidgetTest::a_command_and_its_answer_pass_unchanged()
{
    FakeHost host;
    const auto widget = widgetOn(host);
    const Variant value(true);
    const Variant answer(QString("an answer"));
    host.answers[Line1Role] = answer;
    QCOMPARE(widget->simulationDirectExec(Line1Role, value).id(), answer.id());
    QCOMPARE(host.calls, QStringList{"exec 1009"});
    QCOMPARE(host.sent.at(Line1Role).id(), value.id());
    QVERIFY(widget->simulationDirectExec(ToggleTorqueRole, Variant()).isEmpty());
}

void DeviceWidgetTest::the_host_can_tell_which_widget_calls()
{
    using plugin::gui::HostCall;
    FakeHost host;
    const auto outer = widgetOn(host);
    const auto inner = widgetOn(host);
    QList<const QWidget*> callers;
    host.onConnect = [&] {
        callers.append(HostCall::caller());
        if (callers.size() > 1)
            return;
        inner->connectDevice(); // as in an event loop of the host's
        callers.append(HostCall::caller());
    };
    outer->connectDevice();
    QCOMPARE(callers, QList<const QWidget*>({outer.get(), inner.get(), outer.get()}));
    QVERIFY(!HostCall::caller());
    host.throwAt = "connect";
    QVERIFY(throws<std::runtime_error>([&] { outer->connectDevice(); }));
    QVERIFY(!HostCall::caller());
}

void DeviceWidgetTest::notifications_do_nothing_by_default()
{
    FakeHost host;
    const auto widget = widgetOn(host);
    const plugin::gui::HistoryBundleContent content;
    widget->connected();
    widget->disconnected();
    widget->on_messageReceived(plugin::plugin::DataRole(1005), 3);
    widget->update(plugin::gui::DeviceHistoryBundle(content));
    widget->setValueChangedAsync();
    QCOMPARE(host.calls, QStringList());
}

void DeviceWidgetTest::a_widget_is_its_hosts_from_construction_to_destruction()
{
    FakeHost host;
    FakeHost otherHost;
    auto first = widgetOn(host);
    const auto second = widgetOn(host);
    const auto other = widgetOn(otherHost);
    QCOMPARE(host.widgets, (QList<DeviceWidget*>{first.get(), second.get()}));
    QCOMPARE(otherHost.widgets, QList<DeviceWidget*>{other.get()});
    first.reset();
    QCOMPARE(host.widgets, QList<DeviceWidget*>{second.get()});
    QCOMPARE(host.calls, QStringList()); // nothing is registered for a widget
}

void DeviceWidgetTest::a_widget_leaves_its_host_before_its_parts_are_gone()
{
    struct Host : FakeHost
    {
        void widgetRemoved(DeviceWidget& widget) override
        {
            FakeHost::widgetRemoved(widget);
            nameWhenRemoved = widget.objectName();
            childrenWhenRemoved = widget.children().size();
        }
        QString nameWhenRemoved;
        qsizetype childrenWhenRemoved = 0;
    } host;
    auto widget = widgetOn(host);
    widget->setObjectName("still whole");
    new QWidget(widget.get());
    widget.reset();
    QCOMPARE(host.nameWhenRemoved, QString("still whole"));
    QCOMPARE(host.childrenWhenRemoved, qsizetype(1));
}

void DeviceWidgetTest::a_child_of_another_widget_is_notified_itself()
{
    FakeHost host;
    auto parent = widgetOn(host);
    const DeviceWidget* const child = widgetOn(host, parent.get()).release();
    QCOMPARE(child->parent(), parent.get());
    QCOMPARE(host.widgets.size(), 2);
    parent.reset();
    QVERIFY(host.widgets.isEmpty());
}

void DeviceWidgetTest::the_delegate_of_another_framework_is_refused()
{
    ForeignDelegate delegate;
    try {
        widgetOn(delegate);
        QFAIL("no exception");
    } catch (const std::invalid_argument& exception) {
        QVERIFY2(QByteArray(exception.what()).contains("delegate"), exception.what());
    }
    QVERIFY(QApplication::allWidgets().isEmpty());
}

void DeviceWidgetTest::a_host_that_refuses_a_widget_leaves_nothing()
{
    struct Host : FakeHost
    {
        void widgetAdded(DeviceWidget&) override { throw std::runtime_error("full"); }
        void widgetRemoved(DeviceWidget&) override { ++removed; }
        int removed = 0;
    } host;
    QVERIFY(throws<std::runtime_error>([&] { widgetOn(host); }));
    QVERIFY(QApplication::allWidgets().isEmpty());
    QCOMPARE(host.removed, 0); // it was never added
}

TEST_WITH_WINDOWS(DeviceWidgetTest)

} // namespace device_widget_test

#include "DeviceWidgetTest.moc"
