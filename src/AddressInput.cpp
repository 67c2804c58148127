// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AddressInput.h"

#include "Quandrel.h"

#include <QContextMenuEvent>
#include <QMenu>

AddressInput::AddressInput(Quandrel* owner) : QComboBox(owner), m_owner(owner)
{
    setLineEdit(new AddressInputEdit(owner));
    setEditable(true);
    // Its events would otherwise take the way through QComboBox, see contextMenuEvent().
    lineEdit()->setContextMenuPolicy(Qt::DefaultContextMenu);
    updateIpAddressHistory();
    // Before the owner connects the same signal: this object's handler runs first.
    connect(lineEdit(), SIGNAL(editingFinished()), this, SLOT(on_editingFinished()));
}

QString AddressInput::text() const
{
    return lineEdit()->text();
}

void AddressInput::updateIpAddressHistory()
{
    if (!m_owner)
        return;
    clear();
    addItems(m_owner->ipAddressHistory());
    setEditText(m_owner->ipAddress());
}

void AddressInput::contextMenuEvent(QContextMenuEvent* event)
{
    lineEdit()->event(event);
}

void AddressInput::on_editingFinished()
{
    if (!m_owner)
        return;
    // The device is told the text without its lower-case s letters first and as typed right
    // afterwards, by the owner.
    m_owner->setIpAddress(text().remove(QLatin1Char('s'), Qt::CaseSensitive));
}

AddressInputEdit::AddressInputEdit(Quandrel* owner) : m_owner(owner) {}

void AddressInputEdit::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu is this edit's child: it goes along when the edit is deleted while it is open.
    const QPointer<QMenu> menu = createStandardContextMenu();
    menu->addSeparator();
    if (m_owner)
        menu->addAction(m_owner->helpAction());
    menu->exec(event->globalPos());
    delete menu.data();
}
