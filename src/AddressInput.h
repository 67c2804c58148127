// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ADDRESSINPUT_H
#define ADDRESSINPUT_H

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>

class Quandrel;

/// The field for the robot's address, with the used addresses as its list. It holds no data of
/// its own: it shows what its owner reads from the device and hands every finished edit back.
class AddressInput : public QComboBox
{
    Q_OBJECT

public:
    /// A child of @p owner; usable, though idle, after the owner is gone.
    explicit AddressInput(Quandrel* owner);

    /// What the field shows, not the current list entry.
    QString text() const;
    /// Rebuilds the list and the shown address from the device.
    void updateIpAddressHistory();

protected:
    /// The line edit's menu, and nothing after it: QComboBox's own handler would go on using
    /// the two although they may be deleted while the menu is open.
    void contextMenuEvent(QContextMenuEvent* event) override;

private Q_SLOTS:
    void on_editingFinished();

private:
    QPointer<Quandrel> m_owner;
};

/// The line edit in an AddressInput: its context menu ends with the owner's help action.
class AddressInputEdit : public QLineEdit
{
public:
    /// Without parent: the combo box takes it.
    explicit AddressInputEdit(Quandrel* owner);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QPointer<Quandrel> m_owner;
};

#endif
