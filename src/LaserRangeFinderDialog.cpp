// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "LaserRangeFinderDialog.h"

#include "Latin1.h"
#include "Roles.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

using olm::core::LaserScanMessage;
using olm::core::variant::Variant;

namespace {

// Every number the same in every locale.
QString sixDigits(double value)
{
    return QString::number(value, 'g', 6);
}

// The constants are in single precision, like the angle: what the device calculated from its
// own pi comes out as a round number of degrees.
double toDegrees(double radians)
{
    return 180.0f * radians / 3.14159274f;
}

} // namespace

LaserRangeFinderDialog::LaserRangeFinderDialog(plugin::gui::DeviceDelegate& delegate,
                                               QWidget* parent)
    : plugin::gui::DeviceWidget(delegate, parent),
      m_log(this),
      m_values(),
      m_captions()
{
    for (int row = 0; row < rowCount; ++row)
        m_values[row] = new QLabel(this);
    for (int row = 0; row < rowCount; ++row)
        m_captions[row] = new QLabel(this);

    QVBoxLayout* const layout = new QVBoxLayout;
    setLayout(layout);
    QFormLayout* const form = new QFormLayout;
    layout->addLayout(form);
    for (int row = 0; row < rowCount; ++row) {
        form->addRow(m_captions[row], m_values[row]);
        m_values[row]->setTextFormat(Qt::PlainText); // a frame's name may look like markup
        m_values[row]->setText("0");
    }

    const QString startText = simulationDirectExec(LaserStartTextRole, Variant()).get<QString>();
    if (!startText.isEmpty())
        m_log.post(startText);
    m_log.show();
    m_log.view()->setHelpAction(helpAction("rangefinder"));
    layout->addWidget(m_log.view());

    delegate.registerInput("scan", true);
}

void LaserRangeFinderDialog::translate()
{
    // The backslashes belong to the captions.
    const QString captions[rowCount] = {
        trans("Sequence number"),
        trans("Time stamp"),
        trans("Frame ID"),
        trans("Minimum angle \\[deg]"),
        trans("Maximum angle \\[deg]"),
        trans("Angle increment \\[deg]"),
        trans("Time increment \\[s]"),
        trans("Scan time \\[s]"),
        trans("Minimum range \\[m]"),
        trans("Maximum range \\[m]"),
        trans("Number of range measurements"),
        trans("Number of intensity measurements"),
    };
    for (int row = 0; row < rowCount; ++row)
        m_captions[row]->setText(captions[row] + ":");
}

void LaserRangeFinderDialog::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    const plugin::gui::VariableHistoryBuffer* const history = bundle.getInputHistory("scan");
    if (!history)
        return;
    const LaserScanMessage scan = history->last().get<LaserScanMessage>();
    const QString values[rowCount] = {
        QString::number(scan.sequenceNumber),
        QString::number(scan.timeStamp),
        Latin1::decode(scan.frameId),
        sixDigits(toDegrees(scan.minimumAngle)),
        sixDigits(toDegrees(scan.maximumAngle)),
        sixDigits(toDegrees(scan.angleIncrement)),
        sixDigits(scan.timeIncrement),
        sixDigits(scan.scanTime),
        sixDigits(scan.minimumRange),
        sixDigits(scan.maximumRange),
        QString::number(static_cast<int>(scan.ranges.size())),
        QString::number(static_cast<int>(scan.intensities.size())),
    };
    for (int row = 0; row < rowCount; ++row)
        m_values[row]->setText(values[row]);
}

void LaserRangeFinderDialog::connected() {}

void LaserRangeFinderDialog::disconnected() {}

void LaserRangeFinderDialog::on_messageReceived(plugin::plugin::DataRole role, const Variant& value)
{
    if (static_cast<int>(role) == LaserLogMessage)
        m_log.postMessage(value);
}
