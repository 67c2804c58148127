// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/PluginView.h"

#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/FailureCard.h"
#include "host/workbench/plugin/PluginAccess.h"
#include "host/workbench/window/Notice.h"
#include "host/workbench/window/PluginBar.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"

#include <QAction>
#include <QDockWidget>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QTabWidget>
#include <QVBoxLayout>

#include <exception>

namespace host::workbench::window {

using ::plugin::gui::DeviceWidget;

PluginView::PluginView(const loading::PluginLoader& plugin, const QString& name)
    : m_plugin(plugin),
      m_name(name),
      m_viewMenu(new QMenu(this)),
      m_resetLayout(new QAction(this)),
      m_title(new QLabel(name)),
      m_notice(new Notice)
{
    setWindowFlags(Qt::Widget);
    setContextMenuPolicy(Qt::NoContextMenu); // its entries would hide the tool bar for good
    setFocusPolicy(Qt::ClickFocus); // a press anywhere in the view makes it the current one
    setAccessibleName(name);

    m_viewMenu->setObjectName("view");
    m_resetLayout->setObjectName("resetLayout");
    connect(m_resetLayout, &QAction::triggered, this, [this] { restoreState(m_usualDocks); });
    m_title->setObjectName("name");
    m_title->setTextFormat(Qt::PlainText);
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setMargin(4);
    m_title->setAutoFillBackground(true);
    m_title->hide();
    setMenuWidget(m_title);

    auto* middle = new QWidget;
    m_middle = new QVBoxLayout(middle);
    m_middle->setContentsMargins(0, 0, 0, 0);
    m_middle->addWidget(m_notice);
    setCentralWidget(middle);
}

QList<loading::Failure> PluginView::failures() const
{
    QList<loading::Failure> failures;
    for (const loading::FailureWords& failure : m_failures)
        failures << failure();
    return failures;
}

void PluginView::setNameShown(bool isShown)
{
    m_title->setVisible(isShown);
}

void PluginView::setCurrent(bool isCurrent)
{
    m_title->setBackgroundRole(isCurrent ? QPalette::Highlight : QPalette::Mid);
    m_title->setForegroundRole(isCurrent ? QPalette::HighlightedText : QPalette::WindowText);
}

void PluginView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMainWindow::changeEvent(event);
}

void PluginView::translate()
{
    m_viewMenu->setTitle(tr("&View"));
    m_resetLayout->setText(tr("&Reset layout"));
    if (m_toolBar)
        m_toolBar->setWindowTitle(tr("Device"));
}

void PluginView::saveLayout(QSettings& layout) const
{
    layout.setValue("docks", saveState());
    if (const auto* tabs = centralWidget()->findChild<const QTabWidget*>())
        layout.setValue("tab", tabs->currentIndex());
}

void PluginView::restoreLayout(const QSettings& layout)
{
    restoreState(layout.value("docks").toByteArray());
    if (auto* tabs = centralWidget()->findChild<QTabWidget*>())
        tabs->setCurrentIndex(layout.value("tab").toInt()); // of none, if there is no such tab
}

void PluginView::notify(const QString& words)
{
    m_notice->add(words);
}

void PluginView::addDock(QDockWidget& dock, Qt::DockWidgetArea area)
{
    addDockWidget(area, &dock);
    m_viewMenu->addAction(dock.toggleViewAction());
    connect(dock.toggleViewAction(), &QAction::triggered, &dock, [&dock](bool isOpened) {
        if (!isOpened)
            return;
        dock.raise();
        dock.setFocus();
    });
}

void PluginView::addPlugin(const Load& load, const std::function<QWidget*()>& standIn)
{
    if (m_plugin.failure()) {
        m_middle->addStretch(2);
        addFailure([this] { return *m_plugin.failure(); });
        m_middle->addStretch(3);
        return;
    }

    // A plugin may do without one of them.
    if (DeviceWidget* toolBarWidget = loadWidget(load, "toolbar")) {
        m_toolBar = new PluginBar;
        m_toolBar->setObjectName("toolBar");
        m_toolBar->setMovable(false);
        m_toolBar->addWidget(toolBarWidget);
        addToolBar(m_toolBar);
    }
    DeviceWidget* const dialog = loadWidget(load, "dialog");
    if (!dialog && !m_toolBar && m_failures.isEmpty())
        addMissingWidgets();
    if (dialog)
        m_middle->addWidget(dialog, 1);
    else if (m_failures.isEmpty())
        m_middle->addWidget(standIn(), 1);
    else
        m_middle->addStretch();
}

void PluginView::keepUsualLayout()
{
    m_viewMenu->addSeparator();
    m_viewMenu->addAction(m_resetLayout);
    m_usualDocks = saveState();
    translate();
}

void PluginView::addMissingWidgets()
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

DeviceWidget* PluginView::loadWidget(const Load& load, const char* name)
{
    QString what; // empty: unknown
    try {
        DeviceWidget* const widget = load(*m_plugin.interface(), name);
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

void PluginView::addFailure(const loading::FailureWords& failure)
{
    m_failures.append(failure);
    auto* frame = new QVBoxLayout;
    frame->setContentsMargins(24, 12, 24, 12);
    frame->addWidget(new plugin::FailureCard(failure));
    m_middle->addLayout(frame);
}

} // namespace host::workbench::window
