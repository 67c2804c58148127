// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_FAULTS_FAULTSMENU_H
#define HOST_WORKBENCH_FAULTS_FAULTSMENU_H

#include "host/device/faults/Faults.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace host::device {
class Device;
}

namespace host::workbench::faults {

class MessageDialog;

/// For developers of plugins: what can be made to go wrong with a device. Every entry acts at
/// once; what is on is checked, and ends when it is unchecked. What they do is in their tool tips.
class FaultsMenu : public QMenu
{
    Q_OBJECT

public:
    /// @p device outlives the menu. @p parent also owns the dialog that the menu opens.
    FaultsMenu(device::Device& device, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    using Faults = device::faults::Faults;

    struct Toggle
    {
        QAction* action;
        bool (Faults::*isOn)() const;
    };

    /// Some strengths of one fault, and 0 for its end.
    struct StrengthMenu
    {
        QMenu* menu;
        std::function<int()> chosen;
        QString (*words)(int value);
    };

    QAction* addToggle(bool (Faults::*isOn)() const, void (Faults::*set)(bool on));
    QMenu* addStrengths(std::initializer_list<int> values, const std::function<int()>& chosen,
                        const std::function<void(int)>& choose, QString (*words)(int value));
    void listVariables();
    void translate();
    void refresh();
    void openDialog();

    device::Device& m_device;
    Faults& m_faults;
    std::vector<Toggle> m_toggles;
    std::vector<StrengthMenu> m_strengths;
    QAction* m_drop;
    QAction* m_refuse;
    QAction* m_controller;
    QMenu* m_delay;
    QMenu* m_lose;
    QAction* m_freeze;
    QAction* m_writes;
    QMenu* m_types;
    QAction* m_send;
    QAction* m_end;
    MessageDialog* m_dialog = nullptr; // until somebody opens it
};

} // namespace host::workbench::faults

#endif
