// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ManipulatorDialog.h"

#include "PositionDelegate.h"
#include "PositionModel.h"
#include "PositionVariables.h"
#include "PositionView.h"
#include "Roles.h"
#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceDelegate.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

using olm::core::variant::Variant;

namespace {

const int lineCount = 3;
const char* const lineVariables[lineCount] = {"line0_enabled", "line1_enabled", "line2_enabled"};

} // namespace

ManipulatorDialog::ManipulatorDialog(plugin::gui::DeviceDelegate& delegate, QWidget* parent)
    : plugin::gui::DeviceWidget(delegate, parent),
      m_log(this),
      m_positionModel(new PositionModel(this)),
      m_positionView(new PositionView(this)),
      m_toggleTorque(new QPushButton(this)),
      m_lines(lineCount)
{
    for (int line = 0; line < lineCount; ++line) {
        m_lines[line] = new QCheckBox(this);
        m_lines[line]->setChecked(readConfigVariable(lineVariables[line]).toBool());
        connect(m_lines[line], SIGNAL(stateChanged(int)), this, SLOT(on_line_stateChanged(int)));
    }
    connect(m_toggleTorque, SIGNAL(clicked()), this, SLOT(on_toggleTorque_clicked()));
    m_positionView->setModel(m_positionModel);
    m_positionView->setItemDelegate(new PositionDelegate(this));

    QVBoxLayout* const layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    setLayout(layout);
    QHBoxLayout* const controls = new QHBoxLayout;
    controls->setContentsMargins(3, 3, 3, 3);
    layout->addLayout(controls);
    QVBoxLayout* const lines = new QVBoxLayout;
    controls->addLayout(lines);
    for (int line = 0; line < lineCount; ++line)
        lines->addWidget(m_lines[line]);
    QVBoxLayout* const torque = new QVBoxLayout;
    controls->addLayout(torque);
    torque->addWidget(m_toggleTorque);
    controls->addStretch();

    QSplitter* const splitter = new QSplitter(Qt::Vertical, this);
    layout->addWidget(splitter);
    splitter->addWidget(m_positionView);
    splitter->addWidget(m_log.view());
    // The table takes all the room that the log can spare.
    splitter->setSizes(QList<int>() << 10000 << m_log.view()->minimumSizeHint().height());

    m_log.show();
    m_log.view()->setHelpAction(helpAction("manipulator"));

    delegate.registerConfigVariable("num_pos", true);
    for (int i = 0; i < readConfigVariable("num_pos_max").toInt(); ++i) {
        delegate.registerConfigVariable(PositionVariables::values(i).c_str(), true);
        delegate.registerConfigVariable(PositionVariables::name(i).c_str(), true);
    }

    connect(m_positionView, SIGNAL(removePos(int)), m_positionModel, SLOT(removePos(int)));
    connect(m_positionView, SIGNAL(addPos()), this, SLOT(on_addPos()));
}

ManipulatorDialog::~ManipulatorDialog()
{
    // A view asks for its headers' sizes even while its window closes, when this is no device
    // widget any more.
    if (m_positionView)
        m_positionView->setModel(nullptr);
}

void ManipulatorDialog::translate()
{
    m_positionModel->translate();
    for (int line = 0; line < lineCount; ++line)
        m_lines[line]->setText(trans("Line") + " " + QString::number(line + 1) + " " +
                               trans("enabled"));
    m_toggleTorque->setText(trans("Toggle torque"));
}

void ManipulatorDialog::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    m_positionModel->update(bundle);
}

void ManipulatorDialog::connected() {}

void ManipulatorDialog::disconnected() {}

void ManipulatorDialog::on_messageReceived(plugin::plugin::DataRole role, const Variant& value)
{
    if (static_cast<int>(role) == ManipulatorLogMessage)
        m_log.postMessage(value);
}

void ManipulatorDialog::on_line_stateChanged(int state)
{
    const int line = static_cast<int>(m_lines.indexOf(qobject_cast<QCheckBox*>(sender())));
    if (line < 0)
        return;
    const bool checked = state == Qt::Checked;
    writeConfigVariable(lineVariables[line], checked);
    simulationDirectExec(static_cast<SimulationDirectExecRole>(Line0Role + line), checked);
}

void ManipulatorDialog::on_toggleTorque_clicked()
{
    simulationDirectExec(ToggleTorqueRole, Variant());
}

void ManipulatorDialog::on_addPos()
{
    simulationDirectExec(AddPositionRole, Variant());
}
