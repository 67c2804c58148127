// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_NAMES_NAMESDIALOG_H
#define HOST_WORKBENCH_NAMES_NAMESDIALOG_H

#include "host/device/connection/Remappings.h"

#include <QDialog>

#include <vector>

class QDialogButtonBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStringListModel;

namespace host::device {
class Device;
}

namespace host::workbench::names {

/// What the device's robot calls the topics and services that this program uses, to be looked at
/// beside what the robot offers, and changed. Every change is in effect, and remembered, as soon as
/// its field is left.
class NamesDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p device outlives the dialog.
    NamesDialog(device::Device& device, QWidget* parent);
    ~NamesDialog() override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Row
    {
        const device::connection::Remappings::Entry& entry;
        QLabel* name;
        QLabel* purpose;
        QLineEdit* theirs;
        QLabel* problem;
        QLabel* state;
        QStringListModel* candidates;
    };

    void addSection(device::connection::Remappings::Kind kind, QLabel* title, QGridLayout* grid);
    void addRow(const device::connection::Remappings::Entry& entry, QGridLayout* grid);
    void translate();
    void refresh();
    void discard();
    void check(const Row& row);
    void take(const Row& row);
    QString stateInWords(const device::connection::Remappings::Entry& entry) const;

    device::Device& m_device;
    QLabel* m_hint;
    QLabel* m_topics;
    QLabel* m_commands;
    QLabel* m_services;
    QLabel* m_joints;
    std::vector<QLabel*> m_titles; // of the columns
    std::vector<Row> m_rows;
    QDialogButtonBox* m_buttons;
    QPushButton* m_reset;
};

} // namespace host::workbench::names

#endif
