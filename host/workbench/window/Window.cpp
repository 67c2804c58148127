// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/Window.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/help/HelpPages.h"
#include "host/workbench/help/HelpPanel.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/preferences/PreferenceMenu.h"
#include "host/workbench/window/DeviceArea.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/FocusFrame.h"
#include "host/workbench/window/TabOrder.h"
#include "olm/qt/log/View.h"
#include "plugin/gui/Interface.h"
#include "plugin/gui/PluginWidget.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QUrl>

namespace host::workbench::window {

namespace {

constexpr QSize sizeForOne(1000, 640);
constexpr int mostDevicesInSight = 2; // before anybody resizes the window

QString layoutGroup(const PluginView& view)
{
    return "views/" + QString::fromLatin1(QUrl::toPercentEncoding(view.name()));
}

/// The theme's, or else the one that is built in, in all sizes that are drawn.
QIcon programIcon()
{
    QIcon drawn;
    const QFileInfoList files = QDir(":/host/workbench/icons").entryInfoList();
    for (const QFileInfo& file : files)
        drawn.addFile(file.filePath());
    return QIcon::fromTheme("device-workbench", drawn);
}

/// The help of a tab is that of the log which is shown in it. Null where none is.
QAction* helpOfLog(const QWidget& around)
{
    for (const auto* log : around.findChildren<const olm::qt::log::View*>()) {
        if (log->isVisible() && !log->actions().isEmpty())
            return log->actions().first();
    }
    return nullptr;
}

} // namespace

Window::Window(const loading::PluginLoader& plugin, plugin::PluginEnvironment& environment)
    : m_plugin(plugin),
      m_environment(environment),
      m_pluginWatch(plugin.file()),
      m_devices(new DeviceArea),
      m_help(new help::HelpPanel(environment.language(), this))
{
    setWindowIcon(programIcon());
    environment.language().addPlugin(plugin.file());
    setContextMenuPolicy(Qt::NoContextMenu);
    addDockWidget(Qt::RightDockWidgetArea, m_help);

    setCentralWidget(m_devices);
    addMenus();
    new FocusFrame(*this); // a child
    connect(&environment, &plugin::PluginEnvironment::helpRequested, this, &Window::showHelp);
    connect(&m_pluginWatch, &plugin::PluginWatch::rebuilt, this, [this] {
        notify(tr("The plugin's file has changed. File > Restart loads it as it is now."));
    });
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, const QWidget* focus) { onFocusChanged(focus); });
    translate();
}

Window::~Window()
{
    // Qt takes the focus away when what is left of this is no Window any more.
    disconnect(qApp, nullptr, this, nullptr);
}

DeviceView& Window::add(device::Device& device, const QString& robot)
{
    auto* view = new DeviceView(m_plugin, device, robot);
    m_stopKey.add(device.stopping());
    const auto join = [this, &device] {
        device.reconnection().setAutomatic(m_environment.lostLinks().areJoinedAgain());
    };
    connect(&m_environment.lostLinks(), &preferences::LostLinks::changed, view, join);
    join();
    const auto sift = [this, &device] {
        device.robotLog().showAllOfOthers(m_environment.otherNodes().areAllShown());
    };
    connect(&m_environment.otherNodes(), &preferences::OtherNodes::changed, view, sift);
    sift();
    m_deviceViews.append(view);
    add(view);
    return *view;
}

void Window::add(PluginView* view)
{
    m_views.append(view);
    m_devices->add(view);
    const QSize usual(sizeForOne.width() * qMin(int(m_views.size()), mostDevicesInSight),
                      sizeForOne.height());
    const QSize title(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    resize(usual.boundedTo(screen()->availableSize() - title));
    for (QMenu* menu : view->menus())
        menuBar()->insertMenu(m_languageMenu->menuAction(), menu);
    for (PluginView* each : std::as_const(m_views))
        each->setNameShown(m_views.size() > 1);
    setCurrent(m_current ? *m_current : *view);
    translate();
}

void Window::restoreLayout(const QString& folder)
{
    m_layoutFile = QDir(folder).filePath("window.ini");
    QSettings layout(m_layoutFile, QSettings::IniFormat);
    restoreGeometry(layout.value("geometry").toByteArray());
    m_devices->restoreState(layout.value("devices").toByteArray());
    for (PluginView* view : std::as_const(m_views)) {
        layout.beginGroup(layoutGroup(*view));
        view->restoreLayout(layout);
        layout.endGroup();
    }
}

void Window::saveLayout()
{
    if (m_layoutFile.isEmpty())
        return;
    QSettings layout(m_layoutFile, QSettings::IniFormat);
    layout.setValue("geometry", saveGeometry());
    layout.setValue("devices", m_devices->saveState());
    for (const PluginView* view : std::as_const(m_views)) {
        layout.beginGroup(layoutGroup(*view));
        view->saveLayout(layout);
        layout.endGroup();
    }
}

QList<loading::Failure> Window::failures() const
{
    return m_views.isEmpty() ? QList<loading::Failure>() : m_views.first()->failures();
}

void Window::notify(const QString& words)
{
    if (m_current)
        m_current->notify(words);
}

void Window::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMainWindow::changeEvent(event);
}

void Window::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    for (auto* dock : findChildren<QDockWidget*>()) {
        if (dock->isFloating() &&
            dock->isVisible()) // it came before the window, and so is below it
            QMetaObject::invokeMethod(dock, &QWidget::raise, Qt::QueuedConnection);
    }
    if (!focusWidget())
        focusNextPrevChild(true);
}

void Window::closeEvent(QCloseEvent* event)
{
    saveLayout();
    for (const DeviceView* view : std::as_const(m_deviceViews))
        view->device().recorder().stop();
    QMainWindow::closeEvent(event);
}

bool Window::focusNextPrevChild(bool next)
{
    QWidget* const stop = TabOrder(*this).next(focusWidget(), next);
    if (stop)
        stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return stop;
}

void Window::translate()
{
    QStringList names;
    for (const PluginView* view : std::as_const(m_views))
        names << view->name();
    setWindowTitle(names.isEmpty() ? tr("Device workbench")
                                   : tr("%1 - device workbench").arg(names.join(", ")));
    m_fileMenu->setTitle(tr("&File"));
    m_restart->setText(tr("&Restart"));
    m_quit->setText(tr("&Quit"));
    m_helpMenu->setTitle(tr("&Help"));
    m_contextHelp->setText(tr("&Context help"));
    m_contents->setText(tr("C&ontents"));
    m_bugReport->setText(tr("Save &bug report…"));
    m_about->setText(tr("&About"));
    if (m_aboutBox)
        m_aboutBox->setText(aboutText());
}

void Window::addMenus()
{
    m_fileMenu = menuBar()->addMenu(QString());
    m_fileMenu->setObjectName("file");
    m_restart = m_fileMenu->addAction(QString());
    m_restart->setObjectName("restart");
    connect(m_restart, &QAction::triggered, this, &Window::restartRequested);
    m_quit = m_fileMenu->addAction(QString());
    m_quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(m_quit, &QAction::triggered, this, &QWidget::close);

    const auto makeMenu = [this](preferences::Preference& preference) {
        auto* menu = new preferences::PreferenceMenu(preference, this);
        connect(menu, &preferences::PreferenceMenu::problem, this, &Window::notify);
        return menu;
    };
    m_fileMenu->insertMenu(m_restart, makeMenu(m_environment.lostLinks()));
    m_fileMenu->insertMenu(m_restart, makeMenu(m_environment.otherNodes()));
    m_fileMenu->insertSeparator(m_restart);
    m_languageMenu = makeMenu(m_environment.language());
    menuBar()->addMenu(m_languageMenu);
    menuBar()->addMenu(makeMenu(m_environment.appearance()));

    m_helpMenu = menuBar()->addMenu(QString());
    m_helpMenu->setObjectName("help");
    m_contextHelp = m_helpMenu->addAction(QString());
    m_contextHelp->setObjectName("contextHelp");
    m_contextHelp->setShortcut(QKeySequence(Qt::Key_F1));
    connect(m_contextHelp, &QAction::triggered, this, &Window::showHelpOfFocus);
    m_contents = m_helpMenu->addAction(QString());
    connect(m_contents, &QAction::triggered, this, &Window::showMainHelp);
    m_bugReport = m_helpMenu->addAction(QString());
    m_bugReport->setObjectName("bugReport");
    connect(m_bugReport, &QAction::triggered, this, &Window::bugReportRequested);
    m_about = m_helpMenu->addAction(QString());
    connect(m_about, &QAction::triggered, this, &Window::showAbout);
}

void Window::setCurrent(PluginView& view)
{
    m_current = &view;
    for (PluginView* each : std::as_const(m_views)) {
        each->setCurrent(each == m_current);
        for (QMenu* menu : each->menus())
            menu->menuAction()->setVisible(each == m_current); // no shortcuts of hidden menus
    }
}

void Window::onFocusChanged(const QWidget* focus)
{
    for (PluginView* view : std::as_const(m_views)) {
        if (focus && view->isAncestorOf(focus) && view != m_current)
            setCurrent(*view);
    }
}

void Window::showHelp(const QString& context)
{
    m_help->openPage(help::helpPage(context));
}

void Window::showMainHelp()
{
    m_help->openPage(help::mainHelpPage);
}

void Window::showHelpOfFocus()
{
    QAction* help = nullptr;
    for (const QWidget* widget = focusWidget(); widget && !help; widget = widget->parentWidget()) {
        const auto* plugin = dynamic_cast<const ::plugin::gui::PluginWidget*>(widget);
        if (plugin && plugin->helpContext().isEmpty())
            help = helpOfLog(*widget);
        else if (plugin)
            help = m_environment.helpAction(plugin->helpContext());
    }
    if (!help && m_current) // nothing of the plugin's has the focus: what it shows, then
        help = helpOfLog(*m_current);
    if (help)
        help->trigger();
    else
        showMainHelp();
}

void Window::showAbout()
{
    if (!m_aboutBox) {
        m_aboutBox = new QMessageBox(QMessageBox::NoIcon, tr("About"), aboutText(),
                                     QMessageBox::Close, this);
        m_aboutBox->setTextFormat(Qt::PlainText);
        m_aboutBox->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                            Qt::TextSelectableByKeyboard);
        m_aboutBox->setWindowModality(Qt::NonModal); // whoever reads it may have to act meanwhile
        m_aboutBox->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_aboutBox->show();
    m_aboutBox->raise();
}

QString Window::aboutText() const
{
    QString text = tr("%1 %2, with Qt %3.")
                       .arg(QApplication::applicationName(), QApplication::applicationVersion(),
                            QLatin1String(qVersion()));
    if (const ::plugin::gui::Interface* interface = m_plugin.interface()) {
        const auto& info = interface->info();
        text += "\n\n" + tr("Plugin: %1 by %2.")
                             .arg(QString::fromLatin1(info.name().c_str()),
                                  QString::fromLatin1(info.vendor().c_str()));
        text += "\n\n" + m_plugin.file();
    }
    return text;
}

} // namespace host::workbench::window
