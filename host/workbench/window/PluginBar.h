// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_PLUGINBAR_H
#define HOST_WORKBENCH_WINDOW_PLUGINBAR_H

#include <QToolBar>

namespace host::workbench::window {

/// The plugin's tool bar: as wide as the bar beside it leaves it. By itself Qt gives all to the
/// last bar of a line.
class PluginBar : public QToolBar
{
    Q_OBJECT

public:
    QSize sizeHint() const override
    {
        constexpr int widest = 4000; // of screens
        return {widest, QToolBar::sizeHint().height()};
    }
};

} // namespace host::workbench::window

#endif
