// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_NAMES_JOINTSBOX_H
#define HOST_WORKBENCH_NAMES_JOINTSBOX_H

#include "host/device/connection/ArmJoints.h"

#include <QWidget>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QStringListModel;

namespace host::workbench::names {

/// Which of the robot's joints are the arm's axes, to be looked at and changed. Every change is in
/// effect, and remembered, as soon as its field is left.
class JointsBox : public QWidget
{
    Q_OBJECT

public:
    /// @p joints outlive the box.
    explicit JointsBox(device::connection::ArmJoints& joints, QWidget* parent = nullptr);
    ~JointsBox() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    using Joint = device::connection::ArmJoints::Joint;

    struct Row
    {
        QLabel* name;
        QLineEdit* joint;
        QComboBox* unit;
        QCheckBox* reversed;
        QDoubleSpinBox* offset;
    };

    void addRow(int axis);
    void change(int axis, const std::function<void(Joint&)>& change);
    void translate();
    void refresh();

    device::connection::ArmJoints& m_joints;
    QLabel* m_hint;
    std::vector<QLabel*> m_titles; // of the columns
    std::vector<Row> m_rows;
    QLabel* m_rest;
    QStringListModel* m_candidates;
};

} // namespace host::workbench::names

#endif
