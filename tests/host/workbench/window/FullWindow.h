// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_WINDOW_FULLWINDOW_H
#define TESTS_HOST_WORKBENCH_WINDOW_FULLWINDOW_H

#include "Patience.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAction>
#include <QDockWidget>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

/// A window with everything in it that it can show at once, and how to look around in it.
namespace full_window {

struct FullWindow
{
    explicit FullWindow(const QString& pluginFile = DEVICE_PLUGIN_FILE)
        : plugin(pluginFile),
          device("Quandrel", settings.path(), environment),
          window(plugin, environment)
    {
        window.add(device, "127.0.0.1:4711");
        view().notify("Something went wrong. Try again.");
        environment.helpAction("toolbar")->trigger();
        for (QDockWidget* dock : docks())
            dock->show();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window, patience));
    }

    host::workbench::window::DeviceView& view() const { return *window.views().first(); }

    QList<QDockWidget*> docks() const
    {
        return view().findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly);
    }

    /// In front of the other.
    QDockWidget& raised(const char* name) const
    {
        auto* const dock = view().findChild<QDockWidget*>(name);
        dock->raise();
        QCoreApplication::processEvents();
        return *dock;
    }

    QTabWidget& tabs() const { return *window.findChild<QTabWidget*>(); }

    QTableView& table() const { return *window.findChild<QTableView*>(); }

    void use(const QString& language)
    {
        const QString before = window.windowTitle();
        environment.language().use(language);
        if (language != "en")
            QTRY_VERIFY_WITH_TIMEOUT(window.windowTitle() != before, patience);
    }

    /// Until the window is as large as all in it needs: a window within a window learns of that
    /// step by step.
    void settle() const
    {
        constexpr int steps = 10;
        for (int i = 0; i < steps; ++i)
            QCoreApplication::processEvents();
        QTRY_COMPARE_WITH_TIMEOUT(window.size(), window.size().expandedTo(window.minimumSizeHint()),
                                  patience);
    }

    /// What @p look finds, with every tab and every dock in front in its turn.
    QStringList find(const std::function<QStringList(const QWidget&)>& look) const
    {
        QStringList found;
        auto* const dialog = window.findChild<QTabWidget*>(); // none in place of a plugin
        for (int tab = 0; tab < (dialog ? dialog->count() : 1); ++tab) {
            if (dialog)
                dialog->setCurrentIndex(tab);
            settle();
            found << look(window);
        }
        for (QDockWidget* dock : docks()) {
            dock->raise();
            settle();
            found << look(window);
        }
        found.removeDuplicates();
        return found;
    }

    const QTemporaryDir settings;
    const host::loading::PluginLoader plugin;
    host::workbench::plugin::PluginEnvironment environment;
    host::device::Device device;
    host::workbench::window::Window window;
};

inline QString describe(const QWidget& widget)
{
    QString words = widget.metaObject()->className();
    for (const QWidget* each = &widget; each; each = each->parentWidget()) {
        if (!each->objectName().isEmpty())
            return words + " in " + each->objectName();
    }
    return words;
}

/// A dock that lies behind another is beside its window.
inline bool isOutOfSight(const QWidget& widget)
{
    for (const QWidget* each = &widget; !each->isWindow(); each = each->parentWidget()) {
        if (!each->isVisible() || (qobject_cast<const QDockWidget*>(each) &&
                                   !each->parentWidget()->rect().intersects(each->geometry())))
            return true;
    }
    return false;
}

/// Says the whole of it, which a comparison would cut short.
inline bool isEmpty(const QStringList& found)
{
    for (const QString& words : found)
        qWarning().noquote() << words;
    return found.isEmpty();
}

inline void addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const QString& code : host::workbench::preferences::Language::codes())
        QTest::newRow(qPrintable(code)) << code;
}

} // namespace full_window

#endif
