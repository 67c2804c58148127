// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/StatusLine.h"

#include "host/device/Device.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/window/Lamp.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include <chrono>

namespace host::workbench::window {

namespace {

using namespace std::chrono_literals;

/// Data of a robot that moves comes many times a second.
constexpr auto stale = 2s;

/// Nobody who steers by it would like it later.
constexpr auto late = 1s;

QLabel* label(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

StatusLine::StatusLine(device::Device& device, const QString& robot)
    : m_device(device),
      m_robotAddress(robot),
      m_lamp(new Lamp),
      m_words(label("status")),
      m_duration(label("duration")),
      m_age(label("age")),
      m_retry(label("retry")),
      m_giveUp(new QToolButton),
      m_robot(robot.isEmpty() ? nullptr : label("robot")),
      m_failure(label("failure")),
      m_faults(label("faults")),
      m_connection([this] { showConnection(); })
{
    m_words->setWordWrap(true);
    m_words->setAlignment(Qt::AlignTop); // beside the lamp, however much room there is
    m_words->setMinimumWidth(24 * m_words->fontMetrics().averageCharWidth());
    m_failure->setWordWrap(true);
    m_faults->setWordWrap(true);
    // A tint of the window's own colour, whatever that is, so that its text stays legible.
    m_age->setStyleSheet("[stale=\"true\"] { background: rgba(255, 170, 0, 90); }");
    m_faults->setStyleSheet("background: rgba(255, 170, 0, 90); padding: 2px;");
    m_clock.setInterval(500ms);
    m_giveUp->setObjectName("giveUp");
    connect(m_giveUp, &QToolButton::clicked, this, [this] { m_device.reconnection().giveUp(); });

    auto* times = new QHBoxLayout;
    times->setSpacing(12);
    times->addWidget(m_duration);
    times->addWidget(m_age);
    times->addWidget(m_retry);
    times->addWidget(m_giveUp);
    times->addStretch();
    auto* now = new QVBoxLayout;
    now->setSpacing(0);
    now->addWidget(m_words);
    now->addLayout(times);
    now->addStretch();
    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    m_lamp->setFixedHeight(m_words->fontMetrics().lineSpacing()); // beside the first line
    top->addWidget(m_lamp, 0, Qt::AlignTop);
    top->addLayout(now, 1);
    if (m_robot)
        top->addWidget(m_robot, 0, Qt::AlignTop);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setSpacing(2);
    layout->addLayout(top);
    layout->addWidget(m_failure);
    layout->addWidget(m_faults);
    layout->addStretch();

    connect(&m_clock, &QTimer::timeout, this, &StatusLine::showTimes);
    connect(&device, &device::Device::connectionStateChanged, this,
            [this] { m_connection.request(); });
    connect(&device, &device::Device::statusChanged, this, [this] { m_connection.request(); });
    connect(&device.reconnection(), &device::connection::Reconnection::changed, this,
            [this] { m_connection.request(); });
    connect(&device.faults(), &device::faults::Faults::changed, this, &StatusLine::showFaults);
    translate();
}

QSize StatusLine::sizeHint() const
{
    return minimumSizeHint();
}

QSize StatusLine::minimumSizeHint() const
{
    const int narrowest = layout()->totalMinimumSize().width();
    return {narrowest, layout()->totalHeightForWidth(qMax(width(), narrowest))};
}

void StatusLine::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        updateGeometry();
}

void StatusLine::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    QWidget::changeEvent(event);
}

void StatusLine::translate()
{
    m_age->setToolTip(
        tr("Age of the newest data that the robot sends continuously, or how late it comes: how "
           "much longer than the quickest data it was on its way."));
    m_giveUp->setText(tr("Do not wait"));
    m_giveUp->setToolTip(tr("Make no further attempts to connect."));
    if (m_robot)
        m_robot->setText(tr("Simulated robot: %1").arg(m_robotAddress));
    showConnection();
    showFaults();
}

void StatusLine::showFaults()
{
    m_faults->setVisible(m_device.faults().isAnyOn());
    m_faults->setText(m_device.faults().summary());
}

void StatusLine::showConnection()
{
    const int state = m_device.connectionState();
    m_lamp->setState(state, m_device.reconnection().isLost());
    m_words->setText(values::shortened(m_device.status()));
    m_words->setToolTip(values::plainToolTip(m_device.status()));

    // What has just gone wrong is the status itself.
    const auto& failure = m_device.connection().lastFailure();
    m_failure->setVisible(!failure.words.isEmpty() && failure.words != m_device.status());
    m_failure->setText(tr("Last error, %1: %2")
                           .arg(failure.time.toString(QStringLiteral("HH:mm:ss")),
                                values::shortened(failure.words)));

    if (m_device.connection().connectedFor() || m_device.reconnection().isTrying())
        m_clock.start();
    else
        m_clock.stop();
    showTimes();
}

void StatusLine::showReconnection()
{
    const device::connection::Reconnection& reconnection = m_device.reconnection();
    m_retry->setVisible(reconnection.isTrying());
    m_giveUp->setVisible(reconnection.isTrying());
    const auto wait = reconnection.untilNextAttempt();
    if (wait)
        m_retry->setText(tr("Connects again in %1 s").arg((*wait + 999ms) / 1s));
    else
        m_retry->setText(tr("Connects again"));
}

void StatusLine::showTimes()
{
    showReconnection();
    const auto duration = m_device.connection().connectedFor();
    m_duration->setVisible(duration.has_value());
    m_age->setVisible(duration.has_value());
    // One height for both: a cause and its remedy need the line of the times.
    m_words->setMinimumHeight((duration ? 1 : 2) * m_words->fontMetrics().lineSpacing());
    if (!duration)
        return;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(*duration).count();
    m_duration->setText(tr("Connected for %1:%2:%3")
                            .arg(seconds / 3600)
                            .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
                            .arg(seconds % 60, 2, 10, QLatin1Char('0')));

    const auto age = m_device.connection().dataAge();
    const bool isOld = age.value_or(*duration) >= stale;
    const auto delay = m_device.connection().followers().delay().value_or(0ms);
    const bool isStale = isOld || delay >= late;
    if (!age)
        m_age->setText(tr("No data yet"));
    else if (!isStale)
        m_age->setText(tr("Data is up to date"));
    else if (!isOld)
        m_age->setText(tr("Data is %1 s late")
                           .arg(std::chrono::duration_cast<std::chrono::seconds>(delay).count()));
    else
        m_age->setText(tr("Newest data: %1 s old")
                           .arg(std::chrono::duration_cast<std::chrono::seconds>(*age).count()));
    if (m_age->property("stale").toBool() != isStale) {
        m_age->setProperty("stale", isStale);
        m_age->setStyleSheet(m_age->styleSheet()); // looks at the property again
    }
}

} // namespace host::workbench::window
