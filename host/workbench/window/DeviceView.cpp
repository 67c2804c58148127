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
#include "host/workbench/plugin/FailureCard.h"
#include "host/workbench/plugin/PluginAccess.h"
#include "host/workbench/positions/PositionsMenu.h"
#include "host/workbench/recording/RecordButton.h"
#include "host/workbench/robotview/RobotDock.h"
#include "host/workbench/traffic/TrafficDock.h"
#include "host/workbench/values/ScanText.h"
#include "host/workbench/values/TableFile.h"
#include "host/workbench/variables/VariablesDock.h"
#include "host/workbench/window/Notice.h"
#include "host/workbench/window/PluginBar.h"
#include "host/workbench/window/StartPage.h"
#include "host/workbench/window/StatusLine.h"
#include "host/workbench/window/TrustBar.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <exception>

namespace host::workbench::window {

using ::plugin::gui::DeviceWidget;

DeviceView::DeviceView(const loading::PluginLoader& plugin, device::Device& device,
                       const QString& robot)
    : m_plugin(plugin),
      m_device(device),
      m_robot(robot),
      m_viewMenu(new QMenu(this)),
      m_robotMenu(new QMenu(this)),
      m_faultsMenu(new faults::FaultsMenu(device, this)),
      m_connect(m_robotMenu->addAction(QString())),
      m_names(m_robotMenu->addAction(QString())),
      m_exportScan(new QAction(this)),
      m_name(new QLabel(device.name())),
      m_notice(new Notice),
      m_connection([this] { showConnection(); }),
      m_status(new StatusLine(device, robot))
{
    setWindowFlags(Qt::Widget);
    setContextMenuPolicy(Qt::NoContextMenu); // its entries would hide the tool bar for good
    setFocusPolicy(Qt::ClickFocus); // a press anywhere in the view makes it the current one
    setAccessibleName(device.name());

    m_viewMenu->setObjectName("view");
    m_robotMenu->setObjectName("robot");
    m_faultsMenu->setObjectName("faults");
    m_name->setObjectName("name");
    m_name->setTextFormat(Qt::PlainText);
    m_name->setAlignment(Qt::AlignCenter);
    m_name->setMargin(4);
    m_name->setAutoFillBackground(true);
    m_name->hide();
    setMenuWidget(m_name);

    auto* middle = new QWidget;
    m_middle = new QVBoxLayout(middle);
    m_middle->setContentsMargins(0, 0, 0, 0);
    m_middle->addWidget(m_notice);
    m_middle->addWidget(new TrustBar(device));
    setCentralWidget(middle);

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
    addPlugin();
    m_usualDocks = saveState();

    connect(&device, &device::Device::connectionStateChanged, this,
            [this] { m_connection.request(); });
    connect(&device, &device::Device::statusChanged, this, [this] { m_connection.request(); });
    connect(&device.reconnection(), &device::connection::Reconnection::changed, this,
            [this] { m_connection.request(); });
    connect(&device, &device::Device::problem, this, &DeviceView::notify);
    translate();
}

QList<loading::Failure> DeviceView::failures() const
{
    QList<loading::Failure> failures;
    for (const loading::FailureWords& failure : m_failures)
        failures << failure();
    return failures;
}

QList<QMenu*> DeviceView::menus() const
{
    return {m_viewMenu, m_robotMenu, m_faultsMenu};
}

void DeviceView::setNameShown(bool isShown)
{
    m_name->setVisible(isShown);
}

void DeviceView::setCurrent(bool isCurrent)
{
    m_name->setBackgroundRole(isCurrent ? QPalette::Highlight : QPalette::Mid);
    m_name->setForegroundRole(isCurrent ? QPalette::HighlightedText : QPalette::WindowText);
}

void DeviceView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        translate();
        m_device.translateWidgets();
    }
    QMainWindow::changeEvent(event);
}

void DeviceView::translate()
{
    m_viewMenu->setTitle(tr("&View"));
    m_robotMenu->setTitle(tr("&Robot"));
    m_names->setText(tr("&Names…"));
    m_exportScan->setText(tr("&Export scan…"));
    m_resetLayout->setText(tr("&Reset layout"));
    if (m_toolBar)
        m_toolBar->setWindowTitle(tr("Device"));
    showConnection();
}

void DeviceView::saveLayout(QSettings& layout) const
{
    layout.setValue("docks", saveState());
    layout.setValue("followRobot", m_robotDock->isFollowing());
    layout.setValue("plots", m_plotsDock->chosen());
    if (const auto* tabs = centralWidget()->findChild<const QTabWidget*>())
        layout.setValue("tab", tabs->currentIndex());
}

void DeviceView::restoreLayout(const QSettings& layout)
{
    restoreState(layout.value("docks").toByteArray());
    if (m_operationBar)
        addToolBar(m_operationBar); // behind a tool bar that the plugin did not have the last time
    m_robotDock->setFollowing(layout.value("followRobot").toBool());
    m_plotsDock->choose(layout.value("plots").toStringList());
    if (auto* tabs = centralWidget()->findChild<QTabWidget*>())
        tabs->setCurrentIndex(layout.value("tab").toInt()); // of none, if there is no such tab
}

void DeviceView::notify(const QString& words)
{
    m_notice->add(words);
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
        addDockWidget(isWide ? Qt::BottomDockWidgetArea : Qt::RightDockWidgetArea, dock);
        m_viewMenu->addAction(dock->toggleViewAction());
        connect(dock->toggleViewAction(), &QAction::triggered, dock, [dock](bool isOpened) {
            if (!isOpened)
                return;
            dock->raise();
            dock->setFocus();
        });
    }
    tabifyDockWidget(m_robotDock, camera);
    tabifyDockWidget(camera, arm);
    tabifyDockWidget(m_plotsDock, events);
    tabifyDockWidget(events, variables);
    tabifyDockWidget(variables, traffic);
    m_viewMenu->addSeparator();
    m_resetLayout = m_viewMenu->addAction(QString());
    m_resetLayout->setObjectName("resetLayout");
    connect(m_resetLayout, &QAction::triggered, this, [this] { restoreState(m_usualDocks); });
    m_robotDock->setVisible(!m_plugin.failure()); // the others are opened when needed
    connect(traffic, &traffic::TrafficDock::problem, this, &DeviceView::notify);
    connect(m_plotsDock, &plots::PlotsDock::problem, this, &DeviceView::notify);
    connect(events, &events::EventsDock::problem, this, &DeviceView::notify);
}

void DeviceView::addPlugin()
{
    if (m_plugin.failure()) {
        m_middle->addStretch(2);
        addFailure([this] { return *m_plugin.failure(); });
        m_middle->addStretch(3);
        m_status->hide(); // nothing can be connected
        return;
    }

    // A plugin may do without one of them.
    if (DeviceWidget* toolBarWidget = loadWidget("toolbar")) {
        m_toolBar = new PluginBar;
        m_toolBar->setObjectName("toolBar");
        m_toolBar->setMovable(false);
        m_toolBar->addWidget(toolBarWidget);
        addToolBar(m_toolBar);
    }
    m_operationBar = new operation::OperationBar(m_device, *m_robotMenu);
    addToolBar(m_operationBar);
    DeviceWidget* const dialog = loadWidget("dialog");
    if (!dialog && !m_toolBar && m_failures.isEmpty())
        addMissingWidgets();
    if (dialog) {
        m_middle->addWidget(dialog, 1);
    } else if (m_failures.isEmpty()) {
        m_startPage = new StartPage(m_device.name(), m_robot);
        m_middle->addWidget(m_startPage, 1);
    } else {
        m_middle->addStretch();
    }
}

void DeviceView::addMissingWidgets()
{
    const auto& info = m_plugin.interface()->info();
    addFailure([vendor = QString::fromLatin1(info.vendor().c_str()),
                name = QString::fromLatin1(info.name().c_str()), file = m_plugin.file()] {
        return loading::Failure{
            tr("The plugin has no widgets"),
            tr("Asked for the widgets \"toolbar\" and \"dialog\" of the device \"%1 %2\", it "
               "returned none.")
                .arg(vendor, name),
            tr("The words are the vendor and the name in its PluginInfo: its loadDeviceWidget() "
               "must know the device by both, with one blank between them."),
            file};
    });
}

DeviceWidget* DeviceView::loadWidget(const char* name)
{
    QString what; // empty: unknown
    try {
        DeviceWidget* const widget = m_device.loadWidget(*m_plugin.interface(), name);
        if (widget)
            new plugin::PluginAccess(*widget); // a child
        return widget;
    } catch (const std::exception& e) {
        what = QString::fromUtf8(e.what());
    } catch (...) {
    }
    addFailure([what, name, file = m_plugin.file()] {
        const QString reason = what.isEmpty() ? tr("its type is unknown") : what;
        return loading::Failure{
            tr("A widget of the plugin failed"),
            tr("The constructor of the widget \"%1\" threw an exception: %2.").arg(name, reason),
            tr("The rest of the window works without it. Ask the plugin's author for a fixed "
               "version."),
            file};
    });
    return nullptr;
}

void DeviceView::addFailure(const loading::FailureWords& failure)
{
    m_failures.append(failure);
    auto* frame = new QVBoxLayout;
    frame->setContentsMargins(24, 12, 24, 12);
    frame->addWidget(new plugin::FailureCard(failure));
    m_middle->addLayout(frame);
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
