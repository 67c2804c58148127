// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_H
#define QUANDREL_H

#include "plugin/gui/DeviceWidget.h"

#include <QPointer>
#include <QStringList>

class AddressInput;
class ConnectButton;

/// The device's connection to the robot at an address: keeps the address and the history of
/// used ones in the device's configuration, connects and disconnects through the host, and
/// shows the state that the host reports on its address field and connect button. Both can be
/// placed into another widget's layout, and may die before or after this object.
class Quandrel : public plugin::gui::DeviceWidget
{
    Q_OBJECT

public:
    /// @p helpContext is the context word of this widget's help.
    Quandrel(plugin::gui::DeviceDelegate& delegate, QWidget* parent, const QString& helpContext);
    ~Quandrel() override;

    /// The two children, created without a place in a layout.
    AddressInput* addressInput() const;
    ConnectButton* connectButton() const;

    using plugin::gui::DeviceWidget::update;

    void translate() override;
    QString helpContext() const override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    /// Stores the typed address, records it in the history and asks the host to connect.
    /// Returns the host's answer.
    virtual bool connectDevice();
    void connected() override;
    void disconnected() override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

    using plugin::gui::DeviceWidget::helpAction;
    /// The host's action for this widget's own help.
    QAction* helpAction() const;

    QString ipAddress() const;
    /// Newest first.
    QStringList ipAddressHistory() const;
    /// Stores @p address, whatever its form, unless it is stored already.
    void setIpAddress(const QString& address);
    /// Connects when the host says that the device is not connected, else disconnects.
    void toggleConnectionState();

private Q_SLOTS:
    void on_addressInput_editingFinished();

private:
    int connectionState();
    void showConnectionState(int state);
    void enableAddressInput(bool enabled);

    const QString m_helpContext;
    QPointer<AddressInput> m_addressInput;
    QPointer<ConnectButton> m_connectButton;
};

#endif
