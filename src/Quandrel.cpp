// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Quandrel.h"

#include "AddressInput.h"
#include "ConnectButton.h"
#include "Latin1.h"
#include "Roles.h"
#include "olm/core/StringList.h"
#include "olm/core/variant/Variant.h"
#include "olm/qt/convert.h"
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QLineEdit>

using olm::core::variant::Variant;

Quandrel::Quandrel(plugin::gui::DeviceDelegate& delegate, QWidget* parent,
                   const QString& helpContext)
    : plugin::gui::DeviceWidget(delegate, parent),
      m_helpContext(helpContext),
      m_addressInput(new AddressInput(this)),
      m_connectButton(new ConnectButton(this))
{
    delegate.registerConfigVariable("ipAddress", true);
    delegate.registerConfigVariable("ipAddressHistory", true);

    connect(m_addressInput->lineEdit(), SIGNAL(returnPressed()), m_connectButton,
            SLOT(on_clicked()));
    connect(m_addressInput->lineEdit(), SIGNAL(editingFinished()), this,
            SLOT(on_addressInput_editingFinished()));

    const int state = connectionState();
    showConnectionState(state);
    enableAddressInput(state == -1);
}

Quandrel::~Quandrel()
{
    // A window that is deleted with the focus in the field ends the edit while it goes. There is
    // no owner left to take the text then, though a QPointer clears only later.
    if (m_addressInput)
        disconnect(m_addressInput->lineEdit(), SIGNAL(editingFinished()), m_addressInput,
                   SLOT(on_editingFinished()));
}

AddressInput* Quandrel::addressInput() const
{
    return m_addressInput;
}

ConnectButton* Quandrel::connectButton() const
{
    return m_connectButton;
}

void Quandrel::translate()
{
    const int state = connectionState();
    if (m_connectButton)
        m_connectButton->translate(state);
}

QString Quandrel::helpContext() const
{
    return m_helpContext;
}

void Quandrel::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (!m_addressInput)
        return;
    if (const plugin::gui::VariableHistoryBuffer* history =
            bundle.getConfigVariableHistory("ipAddress"))
        m_addressInput->setEditText(Latin1::decode(history->last().toString()));
    if (bundle.getConfigVariableHistory("ipAddressHistory"))
        m_addressInput->updateIpAddressHistory();
}

bool Quandrel::connectDevice()
{
    beginTransaction("Set IP Address");
    if (m_addressInput)
        setIpAddress(m_addressInput->text());
    // Read back, so that the history records what the host made of the address.
    const QString address = ipAddress();
    QStringList history = ipAddressHistory();
    if (!history.contains(address)) {
        history.prepend(address);
        writeConfigVariable("ipAddressHistory", olm::qt::convert(history));
    }
    endTransaction();
    return plugin::gui::DeviceWidget::connectDevice();
}

void Quandrel::connected()
{
    enableAddressInput(false);
}

// The field stays disabled until the host reports the state: a lost connection may be on its
// way back.
void Quandrel::disconnected() {}

void Quandrel::on_messageReceived(plugin::plugin::DataRole role, const Variant& value)
{
    const int number = role;
    if (number != ButtonStateMessage && number != ConnectionStateMessage)
        return;
    const int state = value.toInt();
    showConnectionState(state);
    if (number == ConnectionStateMessage)
        enableAddressInput(state == -1);
}

QAction* Quandrel::helpAction() const
{
    return helpAction(m_helpContext);
}

QString Quandrel::ipAddress() const
{
    return Latin1::decode(readConfigVariable("ipAddress").toString());
}

QStringList Quandrel::ipAddressHistory() const
{
    return olm::qt::convert(readConfigVariable("ipAddressHistory").toStringList());
}

void Quandrel::setIpAddress(const QString& address)
{
    if (address == ipAddress())
        return;
    writeConfigVariable("ipAddress", Latin1::encode(address));
}

void Quandrel::toggleConnectionState()
{
    if (connectionState() < 0)
        connectDevice();
    else
        disconnectDevice();
}

void Quandrel::on_addressInput_editingFinished()
{
    if (m_addressInput)
        setIpAddress(m_addressInput->text());
}

int Quandrel::connectionState()
{
    return simulationDirectExec(ConnectionStateRole, Variant()).toInt();
}

void Quandrel::showConnectionState(int state)
{
    if (m_connectButton)
        m_connectButton->setConnectionState(state);
}

void Quandrel::enableAddressInput(bool enabled)
{
    if (m_addressInput)
        m_addressInput->setEnabled(enabled);
}
