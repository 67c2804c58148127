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
    selectText();
    return false;
}

void DialogOpening::makeRoomForTitle()
{
    const QFontMetrics metrics(QFontDatabase::systemFont(QFontDatabase::TitleFont));
    const int width =
        metrics.horizontalAdvance(m_dialog.windowTitle()) + 2 * titleButtons * metrics.height();
    m_dialog.setMinimumWidth(std::max(m_dialog.minimumWidth(), width));
}

/// Of the first field, which is the one to get the focus.
void DialogOpening::selectText()
{
    if (auto* const number = m_dialog.findChild<QAbstractSpinBox*>())
        number->selectAll();
    else if (auto* const text = m_dialog.findChild<QLineEdit*>())
        text->selectAll();
}

} // namespace host::workbench::plugin
