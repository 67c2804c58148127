#include "host/workbench/Window.h"

#include "host/device/Device.h"
#include "host/workbench/FailureCard.h"
#include "host/workbench/HelpPages.h"
#include "host/workbench/HelpPanel.h"
#include "host/workbench/LanguageMenu.h"
#include "host/workbench/Notice.h"
#include "host/workbench/PluginLoader.h"
#include "host/workbench/Services.h"
#include "host/workbench/StartPage.h"
#include "host/workbench/traffic/TrafficDock.h"
#include "host/workbench/variables/VariablesDock.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <exception>

namespace host::workbench {

using plugin::gui::DeviceWidget;

Window::Window(const PluginLoader& plugin, device::Device& device, Services& services,
               const QString& robot)
    : m_plugin(plugin),
      m_device(device),
      m_services(services),
      m_robot(robot),
      m_notice(new Notice),
      m_help(new HelpPanel(services.language(), this)),
      m_status(new QLabel)
{
    setContextMenuPolicy(Qt::NoContextMenu); // its entries would hide the tool bar for good
    resize(800, 540);
    addDockWidget(Qt::RightDockWidgetArea, m_help);

    auto* middle = new QWidget;
    m_middle = new QVBoxLayout(middle);
    m_middle->setContentsMargins(0, 0, 0, 0);
    m_middle->addWidget(m_notice);
    setCentralWidget(middle);

    addMenus();
    addDocks();
    addStatusBar();
    addPlugin();

    connect(&device, &device::Device::connectionStateChanged, this, &Window::showConnection);
    connect(&device, &device::Device::statusChanged, this, &Window::showConnection);
    connect(&device, &device::Device::problem, this, &Window::notify);
    connect(&services, &Services::helpRequested, this, &Window::showHelp);
    translate();
}

QList<Failure> Window::failures() const
{
    QList<Failure> failures;
    for (const FailureWords& failure : m_failures)
        failures << failure();
    return failures;
}

void Window::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        translate();
        m_device.translateWidgets();
    }
    QMainWindow::changeEvent(event);
}

void Window::translate()
{
    setWindowTitle(tr("%1 - device workbench").arg(m_device.name()));
    m_fileMenu->setTitle(tr("&File"));
    m_view->setTitle(tr("&View"));
    m_quit->setText(tr("&Quit"));
    m_helpMenu->setTitle(tr("&Help"));
    m_contextHelp->setText(tr("&Context help"));
    m_contents->setText(tr("C&ontents"));
    m_about->setText(tr("&About"));
    if (m_toolBar)
        m_toolBar->setWindowTitle(tr("Device"));
    if (m_robotLabel)
        m_robotLabel->setText(tr("Simulated robot: %1").arg(m_robot));
    if (m_help->isVisible() && !m_help->hasPage())
        showAbout();
    showConnection();
}

void Window::notify(const QString& words)
{
    m_notice->add(words);
}

void Window::addMenus()
{
    m_fileMenu = menuBar()->addMenu(QString());
    m_quit = m_fileMenu->addAction(QString());
    m_quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(m_quit, &QAction::triggered, this, &QWidget::close);

    m_view = menuBar()->addMenu(QString());

    auto* languages = new LanguageMenu(m_services.language(), this);
    menuBar()->addMenu(languages);
    connect(languages, &LanguageMenu::problem, this, &Window::notify);

    m_helpMenu = menuBar()->addMenu(QString());
    m_contextHelp = m_helpMenu->addAction(QString());
    m_contextHelp->setShortcut(QKeySequence(Qt::Key_F1));
    connect(m_contextHelp, &QAction::triggered, this, &Window::showHelpOfFocus);
    m_contents = m_helpMenu->addAction(QString());
    connect(m_contents, &QAction::triggered, this, &Window::showMainHelp);
    m_about = m_helpMenu->addAction(QString());
    connect(m_about, &QAction::triggered, this, &Window::showAbout);
}

void Window::addDocks()
{
    auto* variables = new VariablesDock(m_device.variables(), this);
    auto* traffic = new TrafficDock(m_device.traffic(), this);
    for (QDockWidget* dock :
         {static_cast<QDockWidget*>(variables), static_cast<QDockWidget*>(traffic)}) {
        addDockWidget(Qt::BottomDockWidgetArea, dock);
        m_view->addAction(dock->toggleViewAction());
    }
    tabifyDockWidget(variables, traffic);
    connect(traffic, &TrafficDock::problem, this, &Window::notify);
}

void Window::addStatusBar()
{
    m_status->setObjectName("status");
    m_status->setTextFormat(Qt::PlainText);
    // Two lines, whatever is said: a cause and its remedy need them.
    m_status->setWordWrap(true);
    m_status->setFixedHeight(2 * m_status->fontMetrics().lineSpacing());
    statusBar()->setContentsMargins(6, 0, 0, 0);
    statusBar()->addWidget(m_status, 1);
    if (!m_robot.isEmpty()) {
        m_robotLabel = new QLabel;
        m_robotLabel->setObjectName("robot");
        statusBar()->addPermanentWidget(m_robotLabel);
    }
}

void Window::addPlugin()
{
    if (m_plugin.failure()) {
        m_middle->addStretch(2);
        addFailure([this] { return *m_plugin.failure(); });
        m_middle->addStretch(3);
        return;
    }

    DeviceWidget* toolBarWidget = loadWidget("toolbar");
    if (toolBarWidget) {
        m_toolBar = new QToolBar;
        m_toolBar->setMovable(false);
        m_toolBar->addWidget(toolBarWidget);
        addToolBar(m_toolBar);
    } else if (m_failures.isEmpty()) {
        addFailure([file = m_plugin.file()] {
            return Failure{tr("The plugin has no tool bar"),
                           tr("Asked for the widget \"toolbar\", it gave none. Without it there is "
                              "no way to connect."),
                           tr("Choose a plugin made for this device with --plugin."), file};
        });
    }

    if (DeviceWidget* dialog = loadWidget("dialog")) {
        m_middle->addWidget(dialog, 1);
    } else if (m_failures.isEmpty()) {
        m_startPage = new StartPage(m_device.name(), m_robot);
        m_middle->addWidget(m_startPage, 1);
    } else {
        m_middle->addStretch();
    }
}

DeviceWidget* Window::loadWidget(const char* name)
{
    QString what; // empty: unknown
    try {
        return m_device.loadWidget(*m_plugin.interface(), name);
    } catch (const std::exception& e) {
        what = QString::fromUtf8(e.what());
    } catch (...) {
    }
    addFailure([what, name, file = m_plugin.file()] {
        const QString reason = what.isEmpty() ? tr("an exception of an unknown type") : what;
        return Failure{
            tr("A widget of the plugin failed"),
            tr("The widget \"%1\" ended while it was being built: %2.").arg(name, reason),
            tr("The rest of the window goes on without it. Ask the maker of the plugin "
               "for a repaired version."),
            file};
    });
    return nullptr;
}

void Window::addFailure(const FailureWords& failure)
{
    m_failures.append(failure);
    auto* frame = new QVBoxLayout;
    frame->setContentsMargins(24, 12, 24, 12);
    frame->addWidget(new FailureCard(failure));
    m_middle->addLayout(frame);
}

void Window::showConnection()
{
    const QString status = m_plugin.failure() ? tr("No plugin is loaded.") : m_device.status();
    m_status->setText(status);
    m_status->setToolTip(status);
    if (m_startPage)
        m_startPage->setConnection(m_device.connectionState(), status);
}

void Window::showHelp(const QString& context)
{
    m_help->openPage(helpPage(context));
}

void Window::showMainHelp()
{
    m_help->openPage(mainHelpPage);
}

void Window::showHelpOfFocus()
{
    for (const QWidget* widget = focusWidget(); widget; widget = widget->parentWidget()) {
        if (const auto* pluginWidget = dynamic_cast<const plugin::gui::PluginWidget*>(widget)) {
            showHelp(pluginWidget->helpContext());
            return;
        }
    }
    showMainHelp();
}

void Window::showAbout()
{
    QString text = tr("<p>%1 %2, with Qt %3.</p>")
                       .arg(QApplication::applicationName(), QApplication::applicationVersion(),
                            QLatin1String(qVersion()));
    if (const plugin::gui::Interface* interface = m_plugin.interface()) {
        const auto& info = interface->info();
        text += tr("<p>Plugin: %1 by %2.</p><p>%3</p>")
                    .arg(QString::fromLatin1(info.name().c_str()).toHtmlEscaped(),
                         QString::fromLatin1(info.vendor().c_str()).toHtmlEscaped(),
                         m_plugin.file().toHtmlEscaped());
    }
    m_help->openText(tr("About"), text);
}

} // namespace host::workbench
