// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginAccess.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/Window.h"
#include "olm/qt/log/View.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace plugin_access_test {

using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using host::device::Device;
using host::workbench::window::Window;

namespace {

/// A window with a plugin that this program was not made for.
struct Workbench
{
    Workbench() : device("Quandrel", settings.path(), environment), window(plugin, environment)
    {
        window.add(device, "127.0.0.1:4711");
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    }

    QComboBox& list() const { return *window.findChild<QToolBar*>()->findChild<QComboBox*>(); }
    QWidget& bar() const { return *list().parentWidget(); }
    QTabWidget& tabs() const { return *window.findChild<QTabWidget*>(); }

    const QTemporaryDir settings;
    const PluginLoader plugin{TEST_PLUGIN_FOLDER "/Gripper.so"};
    PluginEnvironment environment;
    Device device;
    Window window;
};

/// What a screen reader says of it.
QString nameOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

/// The names of controls that show no words: out of what any plugin says of them, and what kind
/// they are and where. Those of this program's plugin are tested with the window.
class PluginAccessTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void controls_have_names_in_every_language_data();
    void controls_have_names_in_every_language();
    void a_name_follows_the_tool_tip();
    void a_name_of_the_plugins_own_stays();
};

void PluginAccessTest::controls_have_names_in_every_language_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("en") << "en" << QStringList{"Open or close",   "Port",  "Device: Input field",
                                               "Fingers: Number", "Mode:", "Fingers: Table",
                                               "Fingers: Log"};
    QTest::newRow("de") << "de"
                        << QStringList{QString::fromUtf8("Öffnen oder schließen"),
                                       "Anschluss",
                                       QString::fromUtf8("Gerät: Eingabefeld"),
                                       "Finger: Zahl",
                                       "Betriebsart:",
                                       "Finger: Tabelle",
                                       "Finger: Protokoll"};
}

void PluginAccessTest::controls_have_names_in_every_language()
{
    expectWarning("does not support propagateSizeHints");
    QFETCH(const QString, language);
    QFETCH(const QStringList, names);
    Workbench workbench;
    workbench.environment.language().use(language);
    const QWidget& page = *workbench.tabs().widget(0);
    const auto found = [&] {
        return QStringList{
            nameOf(workbench.bar().findChild<QToolButton*>()),
            nameOf(workbench.bar().findChild<QLineEdit*>({}, Qt::FindDirectChildrenOnly)),
            workbench.list().accessibleName(),
            nameOf(page.findChild<QAbstractSpinBox*>()),
            page.findChild<QLabel*>()->text(),
            nameOf(page.findChild<QTableView*>()),
            nameOf(page.findChild<olm::qt::log::View*>())};
    };
    QTRY_COMPARE_WITH_TIMEOUT(found(), names, patience);
    QCOMPARE(nameOf(workbench.list().lineEdit()), workbench.list().accessibleName());
    // What a label names needs no name, and what is a part of it none of its own.
    QCOMPARE(page.findChild<QComboBox*>()->accessibleName(), QString());
}

void PluginAccessTest::a_name_follows_the_tool_tip()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    auto* const button = workbench.bar().findChild<QToolButton*>();
    button->setToolTip("Opened");
    QCOMPARE(nameOf(button), QString("Opened"));
}

void PluginAccessTest::a_name_of_the_plugins_own_stays()
{
    QWidget plugin;
    auto* const named = new QLineEdit(&plugin);
    auto* const nameless = new QLineEdit(&plugin);
    named->setAccessibleName("Its name");
    new PluginAccess(plugin); // a child
    plugin.show();
    QCOMPARE(nameOf(named), QString("Its name"));
    QCOMPARE(nameOf(nameless), QString("Input field"));
}

TEST_WITH_WINDOWS(PluginAccessTest)

} // namespace plugin_access_test

#include "PluginAccessTest.moc"
