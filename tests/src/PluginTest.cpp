// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FakeHost.h"
#include "LoadedPlugin.h"
#include "TestCase.h"
#include "Throws.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/UnitDelegate.h"

#include <QApplication>
#include <QMetaMethod>
#include <QProcess>
#include <QtTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <thread>

namespace plugin_test {

/// The plugin as a host has it: the shared library, loaded at run time and never linked.
class PluginTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void the_first_calls_of_eight_threads_get_one_object(); // before any other call
    void every_call_stores_the_same_object();
    void the_plugin_says_which_device_it_serves();
    void init_and_deinit_change_nothing();
    void unit_widgets_are_not_offered();
    void only_the_exact_names_give_a_widget_data();
    void only_the_exact_names_give_a_widget();
    void every_widget_is_a_new_one_without_parent_data();
    void every_widget_is_a_new_one_without_parent();
    void the_classes_have_their_signals_and_slots_data();
    void the_classes_have_their_signals_and_slots();
    void the_library_exports_its_three_functions_and_nothing_else();
    void an_exception_of_the_host_during_construction_passes_and_leaves_nothing_data();
    void an_exception_of_the_host_during_construction_passes_and_leaves_nothing();
    void an_exception_of_the_translation_passes_and_leaves_nothing();

private:
    LoadedPlugin m_plugin;
};

namespace {

const char* const device = "OLM GmbH Quandrel";

/// "private slot name(type argument)". The names of a slot's arguments belong to the callers
/// of a public one alone.
QString described(const QMetaMethod& method)
{
    const QString access = method.access() == QMetaMethod::Private ? "private " : "public ";
    const QString kind = method.methodType() == QMetaMethod::Signal ? "signal " : "slot ";
    QString signature = method.methodSignature();
    if (method.access() == QMetaMethod::Public && method.parameterCount() == 1)
        signature.insert(signature.size() - 1, ' ' + method.parameterNames().constFirst());
    return access + kind + signature;
}

} // namespace

void PluginTest::initTestCase()
{
    QVERIFY2(m_plugin.load(), qPrintable(m_plugin.error()));
    QVERIFY2(m_plugin.symbol("pluginGuiInterface"), qPrintable(m_plugin.error()));
}

void PluginTest::the_first_calls_of_eight_threads_get_one_object()
{
    const auto entry = m_plugin.entryPoint();
    std::array<plugin::gui::Interface*, 8> objects{};
    std::atomic<int> waiting{0};
    std::vector<std::thread> threads;
    threads.reserve(objects.size());
    for (auto& object : objects) {
        threads.emplace_back([&] {
            ++waiting;
            while (waiting < static_cast<int>(objects.size()))
                std::this_thread::yield();
            entry(&object);
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    QVERIFY(objects.front());
    for (const auto* object : objects)
        QCOMPARE(object, objects.front());
    QCOMPARE(objects.front()->info().vendor(), std::string("OLM GmbH"));
}

void PluginTest::every_call_stores_the_same_object()
{
    plugin::gui::Interface* first = nullptr;
    plugin::gui::Interface* second = nullptr;
    m_plugin.entryPoint()(&first);
    m_plugin.entryPoint()(&second);
    QVERIFY(first);
    QCOMPARE(second, first);
}

void PluginTest::the_plugin_says_which_device_it_serves()
{
    const plugin::plugin::PluginInfo& info = m_plugin.interface().info();
    QCOMPARE(info.vendor(), std::string("OLM GmbH"));
    QCOMPARE(info.name(), std::string("Quandrel"));
    QCOMPARE(info.description(), std::string("not specified"));
    for (int index = 0; index < 4; ++index)
        QCOMPARE(info.number(index), -1);
    QCOMPARE(info.vendor() + " " + info.name(), std::string(device));
}

void PluginTest::init_and_deinit_change_nothing()
{
    const auto before = QApplication::allWidgets();
    m_plugin.interface().init();
    m_plugin.interface().deinit();
    QCOMPARE(QApplication::allWidgets(), before);
}

void PluginTest::unit_widgets_are_not_offered()
{
    plugin::gui::UnitDelegate unit;
    QVERIFY(!m_plugin.interface().loadUnitWidget(device, "toolbar", unit));
    QVERIFY(!m_plugin.interface().loadUnitWidget(device, "dialog", unit));
}

void PluginTest::only_the_exact_names_give_a_widget_data()
{
    QTest::addColumn<QByteArray>("vendorAndDevice");
    QTest::addColumn<QByteArray>("widget");
    QTest::addColumn<bool>("offered");

    QTest::newRow("the toolbar") << QByteArray(device) << QByteArray("toolbar") << true;
    for (const char* widget : {"Toolbar", "toolbar ", " toolbar", "TOOLBAR", "tool", "toolbars",
                               "Dialog", "dialog ", "", "quandrel"})
        QTest::addRow("widget '%s'", widget) << QByteArray(device) << QByteArray(widget) << false;
    QTest::newRow("the dialog") << QByteArray(device) << QByteArray("dialog") << true;
    for (const char* name :
         {"OLM GmbH Quandrel ", " OLM GmbH Quandrel", "olm gmbh quandrel", "OLM GmbH", "Quandrel",
          "OLM GmbH  Quandrel", "OLM GmbH Quandrel2", "OLM GmbH Quandre", ""}) {
        for (const char* widget : {"toolbar", "dialog", "other"})
            QTest::addRow("device '%s', widget '%s'", name, widget)
                << QByteArray(name) << QByteArray(widget) << false;
    }
}

void PluginTest::only_the_exact_names_give_a_widget()
{
    QFETCH(QByteArray, vendorAndDevice);
    QFETCH(QByteArray, widget);
    QFETCH(bool, offered);
    FakeHost host;
    const std::unique_ptr<plugin::gui::DeviceWidget> loaded(
        m_plugin.interface().loadDeviceWidget(vendorAndDevice, widget, host));
    QCOMPARE(loaded != nullptr, offered);
    if (!offered) {
        QCOMPARE(host.calls, QStringList());
        QVERIFY(host.widgets.isEmpty());
    }
}

void PluginTest::every_widget_is_a_new_one_without_parent_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("toolbar") << QByteArray("toolbar") << QByteArray("Toolbar");
    QTest::newRow("dialog") << QByteArray("dialog") << QByteArray("Dialog");
}

void PluginTest::every_widget_is_a_new_one_without_parent()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, className);
    FakeHost host;
    for (int i = 0; i < 2; ++i) {
        const std::unique_ptr<plugin::gui::DeviceWidget> widget(m_plugin.widget(name, host));
        const std::unique_ptr<plugin::gui::DeviceWidget> other(m_plugin.widget(name, host));
        QVERIFY(widget && other);
        QVERIFY(widget != other);
        QVERIFY(!widget->parent() && !other->parent());
        QCOMPARE(QByteArray(widget->metaObject()->className()), className);
        QCOMPARE(QByteArray(other->metaObject()->className()), className);
        QVERIFY(host.widgets.contains(widget.get()) && host.widgets.contains(other.get()));
    }
    QVERIFY(host.widgets.isEmpty());
}

void PluginTest::the_classes_have_their_signals_and_slots_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QStringList>("methods");
    const QByteArray dialog("dialog");
    const auto row = [](const QByteArray& name, const char* className, const QStringList& methods) {
        QTest::newRow(className) << name << QByteArray(className) << methods;
    };
    row("toolbar", "Toolbar", {});
    row("toolbar", "AddressInput", {"private slot on_editingFinished()"});
    row("toolbar", "ConnectButton", {"public slot on_clicked()"});
    row(dialog, "Dialog", {});
    row(dialog, "Quandrel", {"private slot on_addressInput_editingFinished()"});
    row(dialog, "BaseDialog",
        {"private slot on_disableDriveSystem_stateChanged(int)",
         "private slot on_resolutionSelector_currentIndexChanged(int)"});
    row(dialog, "ManipulatorDialog",
        {"private slot on_addPos()", "private slot on_line_stateChanged(int)",
         "private slot on_toggleTorque_clicked()"});
    row(dialog, "LaserRangeFinderDialog", {});
    row(dialog, "PositionModel", {"public slot addPos()", "public slot removePos(int row)"});
    row(dialog, "PositionView",
        {"private slot on_addPos()", "private slot on_editSpeed()", "private slot on_removePos()",
         "public signal addPos()", "public signal removePos(int pos)"});
    row(dialog, "PositionDelegate", {});
}

void PluginTest::the_classes_have_their_signals_and_slots()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, className);
    QFETCH(QStringList, methods);
    FakeHost host;
    const std::unique_ptr<plugin::gui::DeviceWidget> widget(m_plugin.widget(name, host));
    QObjectList objects = widget->findChildren<QObject*>();
    objects.prepend(widget.get());
    const auto found = std::find_if(objects.cbegin(), objects.cend(), [&](const QObject* object) {
        return object->metaObject()->className() == className;
    });
    QVERIFY(found != objects.cend());

    const QMetaObject& type = *(*found)->metaObject();
    QStringList declared;
    for (int index = type.methodOffset(); index < type.methodCount(); ++index)
        declared.append(described(type.method(index)));
    declared.sort();
    QCOMPARE(declared, methods);
    QCOMPARE(type.propertyCount(), type.propertyOffset());
}

void PluginTest::the_library_exports_its_three_functions_and_nothing_else()
{
    QProcess nm;
    nm.start(NM_PROGRAM, {"--dynamic", "--defined-only", "--extern-only", "--demangle",
                          "--format=posix", LoadedPlugin::fileName()});
    QVERIFY2(nm.waitForFinished(), qPrintable(nm.errorString()));
    QCOMPARE(nm.exitCode(), 0);
    QStringList names;
    const QStringList lines = QString(nm.readAllStandardOutput()).split('\n');
    for (const QString& line : lines) {
        if (!line.isEmpty())
            names.append(line.section(' ', 0, 1)); // the name and its type: T is a function
    }
    names.sort();
    QCOMPARE(names,
             (QStringList{"pluginGuiInterface T", "qCleanupResources_device_quandrel_gui() T",
                          "qInitResources_device_quandrel_gui() T"}));
}

void PluginTest::an_exception_of_the_host_during_construction_passes_and_leaves_nothing_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("not connected") << -1;
    QTest::newRow("connected") << 3; // this one reads the address for the tool tip
}

void PluginTest::an_exception_of_the_host_during_construction_passes_and_leaves_nothing()
{
    QFETCH(int, state);
    FakeHost model;
    model.answers[ConnectionStateRole] = state;
    delete m_plugin.widget("toolbar", model);
    QVERIFY(model.calls.size() >= 5);

    for (int index = 0; index < model.calls.size(); ++index) {
        FakeHost host;
        host.answers[ConnectionStateRole] = state;
        host.throwAtCall = index;
        std::string thrown;
        try {
            delete m_plugin.widget("toolbar", host);
        } catch (const std::runtime_error& exception) {
            thrown = exception.what();
        }
        QCOMPARE(QString::fromStdString(thrown), model.calls.at(index));
        QVERIFY(host.widgets.isEmpty());
        QVERIFY(QApplication::allWidgets().isEmpty());
    }
}

void PluginTest::an_exception_of_the_translation_passes_and_leaves_nothing()
{
    struct Host : FakeHost
    {
        QString translate(const QString&) const override { throw std::runtime_error("dictionary"); }
    } host;
    QVERIFY(throws<std::runtime_error>([&] { delete m_plugin.widget("toolbar", host); }));
    QVERIFY(host.widgets.isEmpty());
    QVERIFY(QApplication::allWidgets().isEmpty());
}

TEST_WITH_WINDOWS(PluginTest)

} // namespace plugin_test

#include "PluginTest.moc"
