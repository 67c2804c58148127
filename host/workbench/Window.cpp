#include "host/workbench/Window.h"

#include "host/device/Device.h"
#include "host/workbench/FailureCard.h"
#include "host/workbench/HelpPanel.h"
#include "host/workbench/HelpTopics.h"
#include "host/workbench/Notice.h"
#include "host/workbench/PluginLoader.h"
#include "host/workbench/Services.h"
#include "host/workbench/StartPage.h"
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
      m_help(new HelpPanel(this)),
      m_status(new QLabel)
{
    setWindowTitle(tr("%1 - device workbench").arg(device.name()));
    setContextMenuPolicy(Qt::NoContextMenu); // its entries would hide the tool bar for good
    resize(800, 540);
    addDockWidget(Qt::RightDockWidgetArea, m_help);

    auto* middle = new QWidget;
    m_middle = new QVBoxLayout(middle);
    m_middle->setContentsMargins(0, 0, 0, 0);
    m_middle->addWidget(m_notice);
    setCentralWidget(middle);

    addMenus();
    addStatusBar();
    addPlugin();

    connect(&device, &device::Device::connectionStateChanged, this, &Window::showConnection);
    connect(&device, &device::Device::statusChanged, this, &Window::showConnection);
    connect(&device, &device::Device::problem, this, &Window::notify);
    connect(&services, &Services::helpRequested, this, &Window::showHelp);
    showConnection();
}

void Window::notify(const QString& words)
{
    m_notice->add(words);
}

void Window::addMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* quit = file->addAction(tr("&Quit"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(quit, &QAction::triggered, this, &QWidget::close);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    QAction* contents = help->addAction(tr("&Context help"));
    contents->setShortcut(QKeySequence(Qt::Key_F1));
    connect(contents, &QAction::triggered, this, &Window::showHelpOfFocus);
    connect(help->addAction(tr("&About")), &QAction::triggered, this, &Window::showAbout);
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
        auto* robot = new QLabel(tr("Simulated robot: %1").arg(m_robot));
        robot->setObjectName("robot");
        statusBar()->addPermanentWidget(robot);
    }
}

void Window::addPlugin()
{
    if (m_plugin.failure()) {
        m_middle->addStretch(2);
        addFailure(*m_plugin.failure());
        m_middle->addStretch(3);
        return;
    }

    DeviceWidget* toolBarWidget = loadWidget("toolbar");
    if (toolBarWidget) {
        auto* toolBar = new QToolBar(tr("Device"));
        toolBar->setMovable(false);
        toolBar->addWidget(toolBarWidget);
        addToolBar(toolBar);
    } else if (m_failures.isEmpty()) {
        addFailure({tr("The plugin has no tool bar"),
                    tr("Asked for the widget \"toolbar\", it gave none. Without it there is no "
                       "way to connect."),
                    tr("Choose a plugin made for this device with --plugin."), m_plugin.file()});
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
    QString reason;
    try {
        return m_device.loadWidget(*m_plugin.interface(), name);
    } catch (const std::exception& e) {
        reason = QString::fromUtf8(e.what());
    } catch (...) {
        reason = tr("an exception of an unknown type");
    }
    addFailure({tr("A widget of the plugin failed"),
                tr("The widget \"%1\" ended while it was being built: %2.").arg(name, reason),
                tr("The rest of the window goes on without it. Ask the maker of the plugin for a "
                   "repaired version."),
                m_plugin.file()});
    return nullptr;
}

void Window::addFailure(const Failure& failure)
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
    const HelpTopic topic = helpTopic(context);
    m_help->open(topic.title, topic.text);
}

void Window::showHelpOfFocus()
{
    QString context;
    for (const QWidget* widget = focusWidget(); widget; widget = widget->parentWidget()) {
        if (const auto* pluginWidget = dynamic_cast<const plugin::gui::PluginWidget*>(widget)) {
            context = pluginWidget->helpContext();
            break;
        }
    }
    showHelp(context);
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
    m_help->open(tr("About"), text);
}

} // namespace host::workbench
