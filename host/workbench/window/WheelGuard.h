// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_WHEELGUARD_H
#define HOST_WORKBENCH_WINDOW_WHEELGUARD_H

#include <QObject>

namespace host::workbench::window {

/// For as long as it lives, whoever scrolls through the application with the mouse's wheel changes
/// no spin box, combo box or slider that happens to come under the mouse: they take the wheel only
/// while they have the focus, and otherwise leave it to what is scrolled around them.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    /// Before the widgets that it guards. There is an application.
    WheelGuard();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace host::workbench::window

#endif
