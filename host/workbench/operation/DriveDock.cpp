// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/operation/DriveDock.h"

#include "host/device/Device.h"
#include "host/workbench/operation/DrivePad.h"

#include <QDoubleSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace host::workbench::operation {

using device::operation::Driving;

namespace {

using namespace std::chrono_literals;

constexpr auto ageInterval = 500ms;
constexpr double step = 0.05;

QDoubleSpinBox* speedBox(double least, double most, double value)
{
    auto* box = new QDoubleSpinBox;
    box->setRange(least, most);
    box->setSingleStep(step);
    box->setValue(value);
    box->setKeyboardTracking(false);
    return box;
}

} // namespace

DriveDock::DriveDock(device::Device& device, QWidget* parent)
    : QDockWidget(parent),
      m_device(device),
      m_pad(new DrivePad),
      m_linearTitle(new QLabel),
      m_linear(speedBox(Driving::slowest.linear, Driving::fastest.linear,
                        device.driving().limits().linear)),
      m_angularTitle(new QLabel),
      m_angular(speedBox(Driving::slowest.angular, Driving::fastest.angular,
                         device.driving().limits().angular)),
      m_words(new QLabel)
{
    setObjectName("DriveDock");
    m_linear->setObjectName("linear");
    m_angular->setObjectName("angular");
    m_linearTitle->setBuddy(m_linear);
    m_angularTitle->setBuddy(m_angular);
    m_words->setObjectName("words");
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_words->setMinimumHeight(2 * m_words->fontMetrics().lineSpacing()); // keeps the pad in place

    auto* speeds = new QVBoxLayout;
    speeds->addWidget(m_linearTitle);
    speeds->addWidget(m_linear);
    speeds->addWidget(m_angularTitle);
    speeds->addWidget(m_angular);
    speeds->addStretch();
    auto* content = new QWidget;
    auto* layout = new QGridLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(speeds, 0, 0);
    layout->addWidget(m_pad, 0, 1);
    layout->addWidget(m_words, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    setWidget(content);
    setFocusProxy(m_pad); // for who opens it

    Driving& driving = device.driving();
    connect(m_pad, &DrivePad::held, &driving, [&driving](double forward, double left) {
        driving.hold({forward, left});
    });
    connect(m_pad, &DrivePad::letGo, &driving, &Driving::letGo);
    connect(&driving, &Driving::changed, this, &DriveDock::refresh);
    for (QDoubleSpinBox* box : {m_linear, m_angular})
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &DriveDock::takeLimits);
    connect(this, &QDockWidget::visibilityChanged, this, &DriveDock::setActive);
    m_ageTimer.setInterval(ageInterval);
    connect(&m_ageTimer, &QTimer::timeout, this, &DriveDock::refresh);

    translate();
    hide();
}

void DriveDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void DriveDock::translate()
{
    setWindowTitle(tr("Drive"));
    m_pad->setAccessibleName(tr("Drive"));
    m_pad->setAccessibleDescription(tr(
        "Hold to drive: drag from the centre, or hold the arrow keys or W, A, S and D. Letting go "
        "stops the robot."));
    m_pad->setToolTip(m_pad->accessibleDescription());
    m_linearTitle->setText(tr("Speed, at most:"));
    m_linear->setSuffix(tr(" m/s"));
    m_angularTitle->setText(tr("Turning, at most:"));
    m_angular->setSuffix(tr(" rad/s"));
    refresh();
}

void DriveDock::setActive(bool isActive)
{
    m_device.driving().setReady(isActive);
    if (isActive)
        m_ageTimer.start();
    else
        m_ageTimer.stop();
    refresh();
}

void DriveDock::refresh()
{
    const Driving& driving = m_device.driving();
    const QString obstacle = driving.obstacle();
    const QString fine = driving.isDriving() ? tr("Driving.") : tr("Ready: hold to drive.");
    m_words->setText(obstacle.isEmpty() ? fine : obstacle);
    m_pad->setDriving(driving.isDriving());
}

void DriveDock::takeLimits()
{
    m_device.driving().setLimits({m_linear->value(), m_angular->value()});
}

} // namespace host::workbench::operation
