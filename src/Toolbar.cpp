// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Toolbar.h"

#include "AddressInput.h"
#include "ConnectButton.h"

#include <QHBoxLayout>

Toolbar::Toolbar(plugin::gui::DeviceDelegate& delegate) : Quandrel(delegate, nullptr, "toolbar")
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    connectButton()->setFixedSize(27, 27);
    connectButton()->setIconSize(QSize(27, 27));

    QHBoxLayout* layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(5);
    setLayout(layout);
    layout->addWidget(connectButton());
    layout->addWidget(addressInput());

    setMaximumWidth(200);
}
