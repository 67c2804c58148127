// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/replay/ReplayView.h"

#include "host/device/replay/Replay.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/replay/ReplayBar.h"
#include "host/workbench/traffic/TrafficDock.h"

#include <QEvent>
#include <QFileInfo>
#include <QMenu>
#include <QStatusBar>

namespace host::workbench::replay {

ReplayView::ReplayView(const loading::PluginLoader& plugin, device::replay::Replay& replay,
                       const QString& file)
    : PluginView(plugin, QFileInfo(file).fileName()),
      m_replay(replay),
      m_replayMenu(new QMenu(this))
{
    m_replayMenu->setObjectName("replay");
    auto* traffic = new traffic::TrafficDock(replay.traffic(), this);
    addDock(*traffic, Qt::BottomDockWidgetArea);
    connect(traffic, &traffic::TrafficDock::problem, this, &ReplayView::notify);
    addPlugin([this](const ::plugin::gui::Interface& factory,
                     const char* name) { return m_replay.loadWidget(factory, name); },
              [] { return new QWidget; });
    auto* bar = new ReplayBar(replay, file);
    m_replayMenu->addActions(bar->actions());
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(bar, 1);
    connect(bar, &ReplayBar::problem, this, &ReplayView::notify);
    connect(&replay, &device::replay::Replay::problem, this, &ReplayView::notify);
    for (const QString& words : replay.problems())
        notify(words);
    keepUsualLayout();
    translate();
    replay.jump(device::replay::Replay::Time(0)); // the widgets are told how it begins
}

QList<QMenu*> ReplayView::menus() const
{
    return {viewMenu(), m_replayMenu};
}

void ReplayView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        translate();
        m_replay.translateWidgets();
    }
    PluginView::changeEvent(event);
}

void ReplayView::translate()
{
    m_replayMenu->setTitle(tr("&Replay"));
}

} // namespace host::workbench::replay
