// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/camera/CameraDock.h"

#include "host/device/Device.h"
#include "host/workbench/camera/PictureView.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace host::workbench::camera {

namespace {

using namespace std::chrono_literals;

constexpr auto captionInterval = 250ms;

} // namespace

CameraDock::CameraDock(device::Device& device, QWidget* parent)
    : QDockWidget(parent),
      m_feed(device, this),
      m_view(new PictureView),
      m_caption(new QLabel)
{
    setObjectName("CameraDock");
    m_view->setObjectName("picture");
    m_caption->setObjectName("caption");
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setMinimumHeight(m_caption->fontMetrics().height()); // also while it is empty

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_caption);
    setWidget(content);
    setFocusProxy(m_view); // for who opens it

    connect(this, &QDockWidget::visibilityChanged, this, &CameraDock::setActive);
    connect(&m_feed, &CameraFeed::changed, this, &CameraDock::refreshPicture);
    m_ageTimer.setInterval(captionInterval);
    connect(&m_ageTimer, &QTimer::timeout, this, &CameraDock::refreshPicture);
    connect(&m_ageTimer, &QTimer::timeout, this, &CameraDock::refreshCaption);

    translate();
    hide();
}

void CameraDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void CameraDock::translate()
{
    setWindowTitle(tr("Camera"));
    m_view->setAccessibleName(tr("The newest picture of the robot's camera"));
    refreshPicture();
    refreshCaption();
}

void CameraDock::setActive(bool active)
{
    m_feed.setActive(active);
    if (active)
        m_ageTimer.start();
    else
        m_ageTimer.stop();
    refreshPicture();
    refreshCaption();
}

void CameraDock::refreshPicture()
{
    const CameraState& state = m_feed.state();
    const auto now = CameraState::Clock::now();
    m_view->setPicture(state.picture(), state.isOld(now), state.problem(now));
}

/// No more often than people read.
void CameraDock::refreshCaption()
{
    m_caption->setText(m_feed.state().caption(CameraState::Clock::now()));
}

} // namespace host::workbench::camera
