// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "BaseDialog.h"

#include "AddressInput.h"
#include "ConnectButton.h"
#include "Quandrel.h"
#include "Roles.h"
#include "olm/core/Vector.h"
#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

using olm::core::variant::Variant;

namespace {

typedef olm::core::Vector<unsigned int> Size;

struct Resolution
{
    const char* text;
    unsigned int width;
    unsigned int height;

    // A size without a height is none of ours.
    bool is(const Size& size) const
    {
        return size.size() > 1 && size[0] == width && size[1] == height;
    }
};

// In the order of the list; the camera has the last one only in the simulator.
const Resolution resolutions[] = {
    {"320x240", 320, 240},
    {"640x480", 640, 480},
    {"1024x768", 1024, 768},
};

} // namespace

BaseDialog::BaseDialog(plugin::gui::DeviceDelegate& delegate, QWidget* parent)
    : plugin::gui::DeviceWidget(delegate, parent),
      m_log(this),
      m_frequencyCaption(new QLabel(this)),
      m_frequency(new QLabel(this)),
      m_camera(new QGroupBox),
      m_resolutionSelector(new QComboBox(this)),
      m_resolutionCaption(new QLabel(this)),
      m_disableDriveSystem(new QCheckBox(this))
{
    QVBoxLayout* const layout = new QVBoxLayout;
    setLayout(layout);
    QHBoxLayout* const connectionRow = new QHBoxLayout;
    layout->addLayout(connectionRow);
    layout->addWidget(m_camera);

    // It stays invisible: only its controls are shown.
    Quandrel* const connection = new Quandrel(delegate, this, QString());
    connection->hide();
    connectionRow->addWidget(connection->addressInput());
    connectionRow->addWidget(connection->connectButton());

    QVBoxLayout* const cameraLayout = new QVBoxLayout;
    m_camera->setLayout(cameraLayout);
    QHBoxLayout* const resolutionRow = new QHBoxLayout;
    cameraLayout->addLayout(resolutionRow);
    resolutionRow->addWidget(m_resolutionCaption);
    updateResolutionSelector();
    resolutionRow->addWidget(m_resolutionSelector, 1);
    m_resolutionCaption->setBuddy(m_resolutionSelector);
    connect(m_resolutionSelector, SIGNAL(currentIndexChanged(int)), this,
            SLOT(on_resolutionSelector_currentIndexChanged(int)));
    QVBoxLayout* const frequencyLayout = new QVBoxLayout;
    cameraLayout->addLayout(frequencyLayout);
    QHBoxLayout* const frequencyRow = new QHBoxLayout;
    frequencyLayout->addLayout(frequencyRow);
    frequencyRow->addWidget(m_frequencyCaption);
    frequencyRow->addWidget(m_frequency);
    frequencyRow->addStretch();
    showFrequency(0);

    layout->addWidget(m_disableDriveSystem);
    m_disableDriveSystem->setChecked(readConfigVariable("disableDriveSystem").toBool());
    connect(m_disableDriveSystem, SIGNAL(stateChanged(int)), this,
            SLOT(on_disableDriveSystem_stateChanged(int)));

    m_log.show();
    layout->addWidget(m_log.view());
    m_log.view()->setHelpAction(helpAction(QString()));

    delegate.registerStateVariable("connectedToSimulator", true);
    delegate.registerInput("cameraFrequency", true);
    delegate.registerConfigVariable("disableDriveSystem", true);
}

void BaseDialog::translate()
{
    m_camera->setTitle(trans("Camera"));
    m_resolutionCaption->setText(trans("Resolution") + ":");
    m_frequencyCaption->setText(trans("Frequency") + ":");
    m_disableDriveSystem->setText(trans("Disable drive system"));
}

void BaseDialog::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (const plugin::gui::VariableHistoryBuffer* history =
            bundle.getInputHistory("cameraFrequency"))
        showFrequency(history->last().toUInt());
    if (bundle.getStateVariableHistory("connectedToSimulator"))
        updateResolutionSelector();
    if (const plugin::gui::VariableHistoryBuffer* history =
            bundle.getConfigVariableHistory("disableDriveSystem")) {
        const bool disabled = history->last().toBool();
        m_disableDriveSystem->blockSignals(true);
        m_disableDriveSystem->setChecked(disabled);
        m_disableDriveSystem->blockSignals(false);
    }
}

void BaseDialog::connected() {}

void BaseDialog::disconnected() {}

void BaseDialog::on_messageReceived(plugin::plugin::DataRole role, const Variant& value)
{
    switch (static_cast<int>(role)) {
    case BaseLogMessage:
        m_log.postMessage(value);
        break;
    case EmphasisedBaseLogMessage:
        m_log.postEmphasisedMessage(value);
        break;
    default:
        break;
    }
}

void BaseDialog::on_resolutionSelector_currentIndexChanged(int index)
{
    const Resolution& resolution = resolutions[index == 1 || index == 2 ? index : 0];
    Size size(2);
    size[0] = resolution.width;
    size[1] = resolution.height;
    writeConfigVariable("camera_resolution", size);
}

void BaseDialog::on_disableDriveSystem_stateChanged(int state)
{
    writeConfigVariable("disableDriveSystem", state == Qt::Checked);
}

bool BaseDialog::isConnectedToSimulator() const
{
    return readStateVariable("connectedToSimulator").toBool();
}

void BaseDialog::updateResolutionSelector()
{
    const Size size = readConfigVariable("camera_resolution").get<Size>();
    if (size.isEmpty())
        return;
    // The device is asked before the signals are blocked: a host that throws leaves them on.
    const int offered = isConnectedToSimulator() ? 3 : 2;
    int selected = 0; // an unknown resolution included
    if (resolutions[1].is(size))
        selected = 1;
    else if (!resolutions[0].is(size) && isConnectedToSimulator() && resolutions[2].is(size))
        selected = 2;

    m_resolutionSelector->blockSignals(true);
    m_resolutionSelector->clear();
    for (int index = 0; index < offered; ++index)
        m_resolutionSelector->addItem(resolutions[index].text);
    m_resolutionSelector->setCurrentIndex(selected);
    m_resolutionSelector->blockSignals(false);
}

void BaseDialog::showFrequency(unsigned int hertz)
{
    m_frequency->setText(QString("%1 Hz").arg(hertz));
}
