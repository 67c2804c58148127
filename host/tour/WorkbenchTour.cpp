// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/tour/WorkbenchTour.h"

#include "host/device/Device.h"
#include "host/tour/Hand.h"
#include "host/workbench/armview/ArmDock.h"
#include "host/workbench/camera/CameraDock.h"
#include "host/workbench/events/EventsDock.h"
#include "host/workbench/faults/FaultsMenu.h"
#include "host/workbench/help/HelpPanel.h"
#include "host/workbench/names/NamesDialog.h"
#include "host/workbench/operation/DriveDock.h"
#include "host/workbench/plots/PlotsDock.h"
#include "host/workbench/plots/Quantity.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/robotview/RobotDock.h"
#include "host/workbench/robotview/RobotFeed.h"
#include "host/workbench/traffic/TrafficDock.h"
#include "host/workbench/variables/VariablesDock.h"
#include "host/workbench/window/Window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDockWidget>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QLineF>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

namespace host::tour {

WorkbenchTour::WorkbenchTour(Operator& person, const workbench::plugin::PluginLoader& plugin,
                             workbench::plugin::PluginEnvironment& environment)
    : m_operator(person),
      m_plugin(plugin),
      m_environment(environment)
{
}

/// Null, after it was told, where there is none or it does not open.
template <class Dock>
Dock* WorkbenchTour::openDock()
{
    auto* const dock = m_operator.window().findChild<Dock*>();
    return open(dock) ? dock : nullptr;
}

bool WorkbenchTour::run()
{
    return connectRobot() && showRobot() && showDriving() && showCamera() && showArm() &&
           showPlots() && showHelp() && showNames() && showVariables() && showTraffic() &&
           showEvents() && showFaults() && showTwoDevices();
}

bool WorkbenchTour::connectRobot()
{
    m_operator.begin(tr("connecting again"));
    if (!m_operator.enterAddress(m_robot.address()) || !m_operator.waitForConnection())
        return false;
    if (auto* const dismiss = m_operator.window().findChild<QAbstractButton*>("dismiss"))
        hand::click(*dismiss); // the last error was that of the plugin's tour
    return m_operator.waitForRobot(m_operator.window());
}

bool WorkbenchTour::showRobot()
{
    m_operator.begin(tr("following the robot"));
    QDockWidget* const dock = m_operator.window().findChild<workbench::robotview::RobotDock*>();
    auto* const follow = dock ? dock->findChild<QAbstractButton*>("follow") : nullptr;
    auto* const world = dock ? dock->findChild<QWidget*>("world") : nullptr;
    if (!follow || !world)
        return m_operator.fail(tr("there is no such dock"));
    hand::click(*follow);
    hand::click(*world);
    for (int i = 0; i < 4; ++i)
        hand::press(m_operator.window(), Qt::Key_Plus);
    const bool isTaken = m_operator.takePicture("robot");
    hand::press(m_operator.window(), Qt::Key_Home);
    return isTaken;
}

/// Ahead and a little to the left.
bool WorkbenchTour::showDriving()
{
    m_operator.begin(tr("driving the robot"));
    auto* const dock = openDock<workbench::operation::DriveDock>();
    if (!dock)
        return false;
    auto* const pad = dock->findChild<QWidget*>("pad");
    if (!m_operator.waitUntil(
            [this] { return m_operator.device().driving().obstacle().isEmpty(); }))
        return m_operator.fail(m_operator.device().driving().obstacle());
    const QPoint place(pad->width() * 2 / 5, pad->height() / 5);
    hand::hold(*pad, place);
    const bool isTaken = waitForWay(0.3) && m_operator.takePicture("driving");
    hand::letGo(*pad, place);
    return isTaken && toggle(*dock);
}

bool WorkbenchTour::showCamera()
{
    m_operator.begin(tr("looking through the camera"));
    auto* const dock = openDock<workbench::camera::CameraDock>();
    if (!dock)
        return false;
    const auto* const caption = dock->findChild<QLabel*>("caption");
    if (!m_operator.waitUntil([caption] { return caption->text().contains(QChar(0x00d7)); }))
        return m_operator.fail(tr("it is empty"));
    return m_operator.takePicture("camera") && toggle(*dock);
}

/// Enters a target, and sends nothing.
bool WorkbenchTour::showArm()
{
    m_operator.begin(tr("looking at the arm"));
    auto* const dock = openDock<workbench::armview::ArmDock>();
    if (!dock)
        return false;
    auto* const target = dock->findChild<QAbstractSpinBox*>("axis1 target");
    if (!target || !m_operator.waitUntil([target] { return target->isEnabled(); }))
        return m_operator.fail(tr("no target can be entered"));
    auto* const picture = dock->findChild<QWidget*>("arm");
    const QImage before = picture->grab().toImage();
    hand::click(*target);
    hand::press(m_operator.window(), Qt::Key_A, Qt::ControlModifier);
    hand::type(m_operator.window(), QStringLiteral("120"));
    hand::press(m_operator.window(), Qt::Key_Return);
    if (!m_operator.waitUntil([&] { return picture->grab().toImage() != before; }))
        return m_operator.fail(tr("the target is not shown"));
    return m_operator.takePicture("arm") && toggle(*dock);
}

bool WorkbenchTour::showPlots()
{
    m_operator.begin(tr("plotting the robot's way"));
    auto* const dock = openDock<workbench::plots::PlotsDock>();
    if (!dock)
        return false;
    using workbench::plots::Quantity;
    QStringList keys;
    for (const char* field : {"pose.pose.position.x", "pose.pose.position.y",
                              "twist.twist.linear.x", "twist.twist.angular.z"})
        keys += Quantity{Quantity::Kind::Field, QStringLiteral("/odom"), QString(field)}.key();
    dock->choose(keys);
    dock->findChild<QComboBox*>("span")->setCurrentIndex(0); // the shortest
    return waitForWay(1.0) && m_operator.takePicture("plots") && toggle(*dock);
}

bool WorkbenchTour::showHelp()
{
    m_operator.begin(tr("asking for help"));
    QDockWidget* const help = m_operator.window().findChild<workbench::help::HelpPanel*>();
    if (!help)
        return m_operator.fail(tr("there is no help"));
    constexpr int laserTab = 2;
    if (!m_operator.openTab(laserTab))
        return false;
    for (QAction* entry : m_operator.window().findChildren<QAction*>()) {
        if (entry->shortcut() == QKeySequence(Qt::Key_F1) && !chooseFromMenu(*entry))
            return false;
    }
    if (!m_operator.waitUntil([help] { return help->isVisible(); }))
        return m_operator.fail(tr("the menu does not open it"));
    const bool isTaken = m_operator.takePicture("help");
    help->close();
    return isTaken;
}

bool WorkbenchTour::showNames()
{
    m_operator.begin(tr("looking at the robot's names"));
    for (QAction* entry : m_operator.window().findChildren<QAction*>("names")) {
        if (!chooseFromMenu(*entry))
            return false;
    }
    workbench::names::NamesDialog* names = nullptr;
    const auto isOpen = [&] {
        names = m_operator.window().findChild<workbench::names::NamesDialog*>();
        return names && names->isVisible();
    };
    if (!m_operator.waitUntil(isOpen))
        return m_operator.fail(tr("the menu does not open it"));
    const bool isTaken = m_operator.takePicture(*names, "names");
    names->close();
    return isTaken;
}

bool WorkbenchTour::showVariables()
{
    m_operator.begin(tr("watching the variables"));
    auto* const dock = openDock<workbench::variables::VariablesDock>();
    if (!dock)
        return false;
    auto* const variables = dock->findChild<QAbstractItemView*>("variables");
    if (!m_operator.waitUntil([variables] { return variables->model()->rowCount() > 0; }))
        return m_operator.fail(tr("it is empty"));
    hand::click(*variables->viewport(),
                variables->visualRect(variables->model()->index(1, 0)).center());
    return m_operator.takePicture("variables") && toggle(*dock);
}

bool WorkbenchTour::showTraffic()
{
    m_operator.begin(tr("watching the calls"));
    auto* const dock = openDock<workbench::traffic::TrafficDock>();
    if (!dock)
        return false;
    auto* const calls = dock->findChild<QAbstractItemView*>("calls");
    if (!m_operator.waitUntil([calls] { return calls->model()->rowCount() > 0; }))
        return m_operator.fail(tr("it is empty"));
    return m_operator.takePicture("traffic") && toggle(*dock);
}

bool WorkbenchTour::showEvents()
{
    m_operator.begin(tr("looking at the events"));
    auto* const dock = openDock<workbench::events::EventsDock>();
    if (!dock)
        return false;
    auto* const events = dock->findChild<QAbstractItemView*>("events");
    if (!m_operator.waitUntil([events] { return events->model()->rowCount() > 0; }))
        return m_operator.fail(tr("it is empty"));
    return m_operator.takePicture("events") && toggle(*dock);
}

bool WorkbenchTour::showFaults()
{
    m_operator.begin(tr("injecting faults"));
    device::Device& device = m_operator.device();
    return chooseFault("controller", "faults-menu") && (m_operator.waitUntil([&] {
               return device.connectionState() == device::connection::Connection::passive;
           }) || m_operator.fail(device.status())) &&
           chooseFault("freeze") && m_operator.takePicture("faults") &&
           chooseFault("end") && (m_operator.waitUntil([&] {
               return device.connectionState() == device::connection::Connection::connected;
           }) || m_operator.fail(device.status()));
}

bool WorkbenchTour::showTwoDevices()
{
    m_operator.begin(tr("showing two devices"));
    const QTemporaryDir settings;
    device::Device first(tr("Robot in the hall"), settings.path(), m_environment);
    device::Device second(tr("Robot in the yard"), settings.path(), m_environment);
    workbench::EmbeddedRobot secondRobot(0, 2);
    first.overrideAddress(m_robot.address());
    second.overrideAddress(secondRobot.address());
    workbench::window::Window window(m_plugin, m_environment);
    window.add(first, m_robot.address());
    window.add(second, secondRobot.address());
    m_operator.device().disconnectDevice(); // gives up control of the robot
    if (!m_operator.show(window))
        return false;
    first.connectDevice();
    second.connectDevice();
    const auto areConnected = [&] {
        return first.connectionState() == device::connection::Connection::connected &&
               second.connectionState() == device::connection::Connection::connected;
    };
    return (m_operator.waitUntil(areConnected) ||
            m_operator.fail(first.status() + ' ' + second.status())) &&
           m_operator.waitForRobot(window) && m_operator.takePicture(window, "two-devices");
}

/// Until the robot has driven so far, perhaps back and forth.
bool WorkbenchTour::waitForWay(double metres)
{
    const auto place = [this] {
        const auto* feed = m_operator.window()
                               .findChild<workbench::robotview::RobotDock*>()
                               ->findChild<workbench::robotview::RobotFeed*>();
        const auto robot = feed->state().robotPlace();
        return robot ? robot->onFloor().map(QPointF()) : QPointF();
    };
    QPointF last = place();
    double way = 0.0;
    const auto isFarEnough = [&] {
        const QPointF now = place();
        way += QLineF(last, now).length();
        last = now;
        return way >= metres;
    };
    return m_operator.waitUntil(isFarEnough) || m_operator.fail(tr("the robot does not move"));
}

bool WorkbenchTour::open(QDockWidget* dock)
{
    return (dock && toggle(*dock)) || m_operator.fail(tr("there is no such dock"));
}

bool WorkbenchTour::toggle(QDockWidget& dock)
{
    const bool wasVisible = dock.isVisible();
    return chooseFromMenu(*dock.toggleViewAction()) &&
           m_operator.waitUntil([&] { return dock.isVisible() != wasVisible; });
}

/// With the mouse: opens the menu in the menu bar that has @p entry, with a picture of it.
bool WorkbenchTour::chooseFromMenu(QAction& entry, const QString& picture)
{
    QMenuBar& bar = *m_operator.window().menuBar();
    for (QAction* menu : bar.actions()) {
        if (!menu->isVisible() || !menu->menu()->actions().contains(&entry))
            continue;
        const auto choose = [&](QWidget& opened) {
            if (!picture.isEmpty() && !m_operator.takePicture(picture))
                return false;
            hand::choose(static_cast<QMenu&>(opened), entry);
            return true;
        };
        return m_operator.within([&] { hand::click(bar, bar.actionGeometry(menu).center()); },
                                 choose);
    }
    return m_operator.fail(tr("no menu has \"%1\"").arg(entry.text()));
}

bool WorkbenchTour::chooseFault(const char* name, const QString& picture)
{
    const auto* const menu = m_operator.window().findChild<workbench::faults::FaultsMenu*>();
    auto* const entry =
        menu ? menu->findChild<QAction*>(name, Qt::FindDirectChildrenOnly) : nullptr;
    return entry ? chooseFromMenu(*entry, picture) : m_operator.fail(tr("there is no such fault"));
}

} // namespace host::tour
