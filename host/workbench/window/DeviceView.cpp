// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/DeviceView.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/armview/ArmDock.h"
#include "host/workbench/camera/CameraDock.h"
#include "host/workbench/events/EventsDock.h"
#include "host/workbench/faults/FaultsMenu.h"
#include "host/workbench/names/NamesDialog.h"
#include "host/workbench/operation/DriveDock.h"
#include "host/workbench/operation/OperationBar.h"
#include "host/workbench/plots/PlotsDock.h"
#include "host/workbench/positions/PositionsMenu.h"
#include "host/workbench/recording/RecordButton.h"
#include "host/workbench/robotview/RobotDock.h"
#include "host/workbench/traffic/TrafficDock.h"
#include "host/workbench/values/ScanText.h"
#include "host/workbench/values/TableFile.h"
#include "host/workbench/variables/VariablesDock.h"
#include "host/workbench/window/StartPage.h"
#include "host/workbench/window/StatusLine.h"
#include "host/workbench/window/TrustBar.h"

#include <QAction>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QVBoxLayout>

namespace host::workbench::window {

DeviceView::DeviceView(const loading::PluginLoader& plugin, device::Device& device,
                       const QString& robot)
    : PluginView(plugin, device.name()),
      m_device(device),
      m_robot(robot),
      m_robotMenu(new QMenu(this)),
      m_faultsMenu(new faults::FaultsMenu(device, this)),
      m_connect(m_robotMenu->addAction(QString())),
      m_names(m_robotMenu->addAction(QString())),
      m_exportScan(new QAction(this)),
      m_connection([this] { showConnection(); }),
      m_status(new StatusLine(device, robot))
{
    m_robotMenu->setObjectName("robot");
    m_faultsMenu->setObjectName("faults");
    middle().addWidget(new TrustBar(device));

    addDocks();
    m_connect->setObjectName("connect");
    connect(m_connect, &QAction::triggered, this, [this] {
        if (m_device.connectionState() < 0)
            m_device.connectDevice();
        else
            m_device.disconnectDevice();
    });
    m_names->setObjectName("names");
    connect(m_names, &QAction::triggered, this, &DeviceView::openNames);
    auto* positions = new positions::PositionsMenu(device, this);
    connect(positions, &positions::PositionsMenu::problem, this, &DeviceView::notify);
    m_robotMenu->addMenu(positions);
    m_robotMenu->addAction(m_exportScan);
    m_exportScan->setObjectName("exportScan");
    connect(m_exportScan, &QAction::triggered, this, &DeviceView::exportScan);
    m_robotMenu->addAction(m_status->recordButton().action());
    connect(&m_status->recordButton(), &recording::RecordButton::problem, this,
            &DeviceView::notify);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(m_status, 1);
    addPlugin([this](const ::plugin::gui::Interface& factory,
                     const char* name) { return m_device.loadWidget(factory, name); },
              [this] {
                  m_startPage = new StartPage(m_device.name(), m_robot);
                  return m_startPage;
              });
    if (this->plugin().failure()) {
        m_status->hide(); // nothing can be connected
    } else {
        m_operationBar = new operation::OperationBar(m_device, *m_robotMenu);
        addToolBar(m_operationBar);
    }
    keepUsualLayout();

    connect(&device, &device::Device::connectionStateChanged, this,
            [this] { m_connection.request(); });
    connect(&device, &device::Device::statusChanged, this, [this] { m_connection.request(); });
    connect(&device.reconnection(), &device::connection::Reconnection::changed, this,
            [this] { m_connection.request(); });
    connect(&device, &device::Device::problem, this, &DeviceView::notify);
    translate();
}

QList<QMenu*> DeviceView::menus() const
{
    return {viewMenu(), m_robotMenu, m_faultsMenu};
}

void DeviceView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        translate();
        m_device.translateWidgets();
    }
    PluginView::changeEvent(event);
}

void DeviceView::translate()
{
    m_robotMenu->setTitle(tr("&Robot"));
    m_names->setText(tr("&Names…"));
    m_exportScan->setText(tr("&Export scan…"));
    showConnection();
}

void DeviceView::saveLayout(QSettings& layout) const
{
    PluginView::saveLayout(layout);
    layout.setValue("followRobot", m_robotDock->isFollowing());
    layout.setValue("plots", m_plotsDock->chosen());
}

void DeviceView::restoreLayout(const QSettings& layout)
{
    PluginView::restoreLayout(layout);
    if (m_operationBar)
        addToolBar(m_operationBar); // behind a tool bar that the plugin did not have the last time
    m_robotDock->setFollowing(layout.value("followRobot").toBool());
    m_plotsDock->choose(layout.value("plots").toStringList());
}

void DeviceView::openNames()
{
    if (!m_namesDialog)
        m_namesDialog = new names::NamesDialog(m_device, this);
    m_namesDialog->show();
    m_namesDialog->raise();
    m_namesDialog->activateWindow();
}

void DeviceView::addDocks()
{
    m_robotDock = new robotview::RobotDock(m_device, this);
    auto* camera = new camera::CameraDock(m_device, this);
    auto* arm = new armview::ArmDock(m_device, this);
    auto* drive = new operation::DriveDock(m_device, this);
    m_plotsDock = new plots::PlotsDock(m_device, this);
    auto* events = new events::EventsDock(m_device.events(), this);
    auto* variables = new variables::VariablesDock(m_device.variables(), this);
    auto* traffic = new traffic::TrafficDock(m_device.traffic(), this);
    for (QDockWidget* dock : std::initializer_list<QDockWidget*>{
             m_robotDock, camera, arm, drive, m_plotsDock, events, variables, traffic}) {
        const bool isWide =
            dock == m_plotsDock || dock == events || dock == variables || dock == traffic;
        addDock(*dock, isWide ? Qt::BottomDockWidgetArea : Qt::RightDockWidgetArea);
    }
    tabifyDockWidget(m_robotDock, camera);
    tabifyDockWidget(camera, arm);
    tabifyDockWidget(m_plotsDock, events);
    tabifyDockWidget(events, variables);
    tabifyDockWidget(variables, traffic);
    m_robotDock->setVisible(!plugin().failure()); // the others are opened when needed
    connect(traffic, &traffic::TrafficDock::problem, this, &DeviceView::notify);
    connect(m_plotsDock, &plots::PlotsDock::problem, this, &DeviceView::notify);
    connect(events, &events::EventsDock::problem, this, &DeviceView::notify);
}

void DeviceView::exportScan()
{
    bool isThere = false;
    const auto scan = m_device.variables()
                          .value(::plugin::gui::VariableKind::Input, "scan")
                          .get<olm::core::LaserScanMessage>(&isThere);
    if (!isThere)
        return notify(tr("There is no scan to export: none has come from the robot yet."));
    values::saveTableAs([scan] { return values::scanTable(scan); }, tr("Export the scan"), *this,
                        [this](const QString& words) { notify(words); });
}

void DeviceView::showConnection()
{
    const int state = m_device.connectionState();
    m_connect->setText(state < 0 ? tr("&Connect")
                       : state < device::connection::Connection::connected
                           ? tr("&Cancel connecting")
                           : tr("&Disconnect"));
    if (m_startPage)
        m_startPage->setConnection(state, m_device.reconnection().isLost(), m_device.status());
}

} // namespace host::workbench::window
