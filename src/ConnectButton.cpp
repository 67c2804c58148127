// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ConnectButton.h"

#include "Quandrel.h"

#include <QIcon>

ConnectButton::ConnectButton(Quandrel* owner) : QToolButton(owner), m_owner(owner)
{
    setObjectName("OLM GmbH Quandrel ConnectButton");
    setFixedSize(40, 40);
    setIconSize(QSize(40, 40));

    const QString path(":/device_quandrel_gui/icons/wifi_connect%1.png");
    for (int frame = 1; frame <= 3; ++frame)
        m_icons.insert(frame - 1, QPixmap(path.arg(frame)));
    m_icons.insert(3, QPixmap(":/device_quandrel_gui/icons/wifi_connect3.png"));
    m_icons.insert(4, QPixmap(":/device_quandrel_gui/icons/wifi_connect3passive.png"));
    m_icons.insert(-1, QPixmap(":/device_quandrel_gui/icons/wifi_disconnect.png"));

    connect(this, SIGNAL(clicked()), this, SLOT(on_clicked()));
}

void ConnectButton::setConnectionState(int state)
{
    setIcon(QIcon(m_icons.value(state)));
    updateToolTip(state);
}

void ConnectButton::translate(int state)
{
    updateToolTip(state);
}

void ConnectButton::updateToolTip(int state)
{
    if (!m_owner)
        return;
    switch (state) {
    case 0:
    case 1:
    case 2:
        setToolTip(m_owner->trans("Connecting to %1.").arg(m_owner->ipAddress()));
        break;
    case 3:
        setToolTip(m_owner->trans("Connected to %1.").arg(m_owner->ipAddress()));
        break;
    case -1:
        setToolTip(m_owner->trans("Not connected."));
        break;
    default:
        break;
    }
}

void ConnectButton::on_clicked()
{
    if (m_owner)
        m_owner->toggleConnectionState();
}

// The click may delete the button, and QToolButton goes on with itself after it. What it does there
// is for buttons with a menu.
void ConnectButton::mouseReleaseEvent(QMouseEvent* event)
{
    QAbstractButton::mouseReleaseEvent(event); // NOLINT(bugprone-parent-virtual-call)
}
