// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_PLUGINVIEW_H
#define HOST_WORKBENCH_WINDOW_PLUGINVIEW_H

#include "host/loading/Failure.h"

#include <QList>
#include <QMainWindow>

#include <functional>

class QAction;
class QLabel;
class QMenu;
class QSettings;
class QToolBar;
class QVBoxLayout;

namespace plugin::gui {
class DeviceWidget;
class Interface;
} // namespace plugin::gui

namespace host::loading {
class PluginLoader;
} // namespace host::loading

namespace host::workbench::window {

class Notice;

/// A plugin's tool bar and its dialog, with docks that look into their device: a main window of its
/// own within the window, so that each has its docks where somebody left them. What the plugin
/// fails to bring is replaced by a card that says why. It never opens a modal box.
class PluginView : public QMainWindow
{
    Q_OBJECT

public:
    /// As it stands above the view; what is kept of the view is kept under this name.
    const QString& name() const { return m_name; }

    /// What the plugin failed to bring, in the order of the cards and the language of the moment.
    QList<loading::Failure> failures() const;

    /// Menus about this view, owned by it, to be shown in the window's menu bar.
    virtual QList<QMenu*> menus() const = 0;

    /// Whether the name stands above it, and whether marked as the one that the menus are about.
    void setNameShown(bool isShown);
    void setCurrent(bool isCurrent);

    /// What a person arranged: docks and the plugin's tab. Under keys of their own in the group of
    /// @p layout that is open; what cannot be read stays as it is.
    virtual void saveLayout(QSettings& layout) const;
    virtual void restoreLayout(const QSettings& layout);

    /// Tells what a person should know of, until it is put away.
    void notify(const QString& words);

protected:
    /// Has the plugin build the widget with that name; null where it has no such widget. What a
    /// constructor throws passes through.
    using Load =
        std::function<::plugin::gui::DeviceWidget*(const ::plugin::gui::Interface&, const char*)>;

    /// @p plugin outlives the view.
    PluginView(const loading::PluginLoader& plugin, const QString& name);

    void changeEvent(QEvent* event) override;

    const loading::PluginLoader& plugin() const { return m_plugin; }

    /// Below the notices; the plugin's dialog is the last in it.
    QVBoxLayout& middle() { return *m_middle; }

    QMenu* viewMenu() const { return m_viewMenu; }

    /// With an entry in the menu "View".
    void addDock(QDockWidget& dock, Qt::DockWidgetArea area);
    /// Shows the plugin's widgets, or why it has none; @p standIn makes what stands in the place of
    /// a dialog that the plugin does without. The docks are there by now.
    void addPlugin(const Load& load, const std::function<QWidget*()>& standIn);
    /// All is in its usual place now.
    void keepUsualLayout();

private:
    void translate();
    void addMissingWidgets();
    ::plugin::gui::DeviceWidget* loadWidget(const Load& load, const char* name);
    void addFailure(const loading::FailureWords& failure);

    const loading::PluginLoader& m_plugin;
    QString m_name;
    QList<loading::FailureWords> m_failures;
    QMenu* m_viewMenu;
    QAction* m_resetLayout;
    QLabel* m_title;
    QToolBar* m_toolBar = nullptr; // the plugin's; null without one
    QVBoxLayout* m_middle;
    QByteArray m_usualDocks; // as nobody has moved them yet
    Notice* m_notice;
};

} // namespace host::workbench::window

#endif
