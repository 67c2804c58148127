// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/operation/ControlMenu.h"

#include "host/device/operation/Control.h"

#include <QEvent>

namespace host::workbench::operation {

using device::operation::Control;

ControlMenu::ControlMenu(Control& control, QWidget* parent)
    : QMenu(parent),
      m_control(control),
      m_take(addAction(QString())),
      m_takeWhenFree(addAction(QString())),
      m_release(addAction(QString()))
{
    setObjectName("controlMenu");
    m_take->setObjectName("take");
    m_takeWhenFree->setObjectName("takeWhenFree");
    m_takeWhenFree->setCheckable(true);
    m_release->setObjectName("release");
    connect(m_take, &QAction::triggered, &control, &Control::take);
    connect(m_takeWhenFree, &QAction::triggered, &control,
            [&control](bool isOn) { isOn ? control.takeWhenFree() : control.giveUp(); });
    connect(m_release, &QAction::triggered, &control, &Control::release);
    connect(&control, &Control::changed, this, &ControlMenu::refresh);
    translate();
}

void ControlMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QMenu::changeEvent(event);
}

void ControlMenu::translate()
{
    setTitle(tr("Con&trol"));
    m_take->setText(tr("&Take control"));
    m_takeWhenFree->setText(tr("Take control when it is &free"));
    m_release->setText(tr("&Release control"));
    refresh();
}

void ControlMenu::refresh()
{
    const Control::State state = m_control.state();
    const bool isPassive = state == Control::State::NotOurs || state == Control::State::Waiting;
    m_take->setEnabled(isPassive);
    m_takeWhenFree->setEnabled(isPassive);
    m_takeWhenFree->setChecked(state == Control::State::Waiting);
    m_release->setEnabled(state == Control::State::Ours);
}

} // namespace host::workbench::operation
