// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/operation/StopKey.h"

#include "host/device/operation/Stopping.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace host::workbench::operation {

StopKey::StopKey()
{
    qApp->installEventFilter(this);
}

/// The press comes to the window first, and is taken from it: nobody else sees the key.
bool StopKey::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool isOfAKey =
        type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride;
    if (!isOfAKey || static_cast<QKeyEvent*>(event)->key() != key)
        return QObject::eventFilter(watched, event);
    if (type == QEvent::KeyPress && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
        for (device::operation::Stopping* stopping : m_stoppings)
            stopping->stop();
    }
    event->accept(); // so that it becomes no shortcut
    return true;
}

} // namespace host::workbench::operation
