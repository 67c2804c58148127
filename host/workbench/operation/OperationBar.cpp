// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/operation/OperationBar.h"

#include "host/device/Device.h"
#include "host/workbench/operation/ControlMenu.h"
#include "host/workbench/operation/StopButton.h"
#include "host/workbench/values/OutsideText.h"

#include <QEvent>
#include <QToolButton>

namespace host::workbench::operation {

using device::operation::Control;
using device::operation::Stopping;

OperationBar::OperationBar(device::Device& device, QMenu& robotMenu)
    : m_device(device),
      m_control(new QToolButton),
      m_release(new QPushButton)
{
    setObjectName("operation");
    setMovable(false);
    auto* menu = new ControlMenu(device.control(), this);
    robotMenu.addMenu(menu);
    m_control->setObjectName("control");
    m_control->setMenu(menu);
    m_control->setPopupMode(QToolButton::InstantPopup);
    m_control->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_control->setFocusPolicy(Qt::StrongFocus);
    m_release->setObjectName("releaseStop");

    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(space);
    addWidget(m_control);
    m_releaseAction = addWidget(m_release);
    addWidget(new StopButton(device.stopping()));

    connect(m_release, &QPushButton::clicked, &device.stopping(), &Stopping::release);
    connect(&device.control(), &Control::changed, this, &OperationBar::refresh);
    connect(&device.stopping(), &Stopping::changed, this, &OperationBar::refresh);
    refresh();
}

bool OperationBar::event(QEvent* event)
{
    const bool isHandled = QToolBar::event(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
    if (event->type() == QEvent::LayoutRequest)
        setMinimumWidth(sizeHint().width());
    return isHandled;
}

void OperationBar::refresh()
{
    setWindowTitle(tr("Operation"));
    refreshControl();
    const Stopping& stopping = m_device.stopping();
    m_release->setText(tr("Release"));
    m_release->setToolTip(values::plainToolTip(
        stopping.canRelease()
            ? tr("Lets the robot move again. Make sure that nobody is in its way.")
            : tr("Only the device in control can let the robot move again: take control first.")));
    m_releaseAction->setVisible(stopping.state() == Stopping::State::Stopped);
    m_releaseAction->setEnabled(stopping.canRelease()); // the button's own is made the action's
}

void OperationBar::refreshControl()
{
    const Control& control = m_device.control();
    QString words;
    switch (control.state()) {
    case Control::State::Ours:
        words = tr("In control");
        break;
    case Control::State::NotOurs:
        words = tr("Not in control");
        break;
    case Control::State::Waiting:
        words = tr("Waiting for control");
        break;
    case Control::State::NotConnected:
    case Control::State::Anyones:
        break;
    }
    m_control->setEnabled(!words.isEmpty()); // else there is nothing to choose
    m_control->setText(words.isEmpty() ? tr("Control") : words);
    m_control->setToolTip(values::plainToolTip(control.inWords()));
    m_control->setAccessibleDescription(control.inWords());
}

} // namespace host::workbench::operation
