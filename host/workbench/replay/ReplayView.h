// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_REPLAY_REPLAYVIEW_H
#define HOST_WORKBENCH_REPLAY_REPLAYVIEW_H

#include "host/workbench/window/PluginView.h"

namespace host::device::replay {
class Replay;
} // namespace host::device::replay

namespace host::workbench::replay {

/// A recording that is played into the plugin: what of a device's view is of use without a robot,
/// and the bar that plays it.
class ReplayView : public window::PluginView
{
    Q_OBJECT

public:
    /// Both outlive the view. @p file is the recording's name.
    ReplayView(const loading::PluginLoader& plugin, device::replay::Replay& replay,
               const QString& file);

    QList<QMenu*> menus() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();

    device::replay::Replay& m_replay;
    QMenu* m_replayMenu;
};

} // namespace host::workbench::replay

#endif
