// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_FAULTS_MESSAGEDIALOG_H
#define HOST_WORKBENCH_FAULTS_MESSAGEDIALOG_H

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace host::device {
class Device;
}

namespace host::workbench::faults {

/// For developers of plugins: sends all widgets of a device a message of any role, with a value
/// of any type. It stays open, for the next one.
class MessageDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p device outlives the dialog.
    MessageDialog(device::Device& device, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void onRoleChanged();
    void send();

    device::Device& m_device;
    QLabel* m_roleLabel;
    QSpinBox* m_role;
    QLabel* m_meaningLabel;
    QComboBox* m_meaning;
    QLabel* m_typeLabel;
    QComboBox* m_type;
    QLabel* m_valueLabel;
    QLineEdit* m_value;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
    QPushButton* m_send;
};

} // namespace host::workbench::faults

#endif
