// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plugin/DialogOpening.h"

#include <QAbstractSpinBox>
#include <QDialog>
#include <QEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QLineEdit>

#include <algorithm>

namespace host::workbench::plugin {

namespace {

// Beside the title: window managers have up to four of them, as wide as the title is high.
constexpr int titleButtons = 4;

} // namespace

DialogOpening::DialogOpening(QDialog& dialog) : QObject(&dialog), m_dialog(dialog)
{
    dialog.installEventFilter(this);
}

bool DialogOpening::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_dialog || event->type() != QEvent::Show)
        return false;
    makeRoomForTitle();
    // It gets its focus after it is shown.
    QMetaObject::invokeMethod(this, &DialogOpening::selectText, Qt::QueuedConnection);
    return false;
}

void DialogOpening::makeRoomForTitle()
{
    const QFontMetrics metrics(QFontDatabase::systemFont(QFontDatabase::TitleFont));
    const int width =
        metrics.horizontalAdvance(m_dialog.windowTitle()) + 2 * titleButtons * metrics.height();
    m_dialog.setMinimumWidth(std::max(m_dialog.minimumWidth(), width));
}

void DialogOpening::selectText()
{
    QWidget* const focused = m_dialog.focusWidget();
    if (auto* const number = qobject_cast<QAbstractSpinBox*>(focused))
        number->selectAll();
    else if (auto* const text = qobject_cast<QLineEdit*>(focused))
        text->selectAll();
}

} // namespace host::workbench::plugin
