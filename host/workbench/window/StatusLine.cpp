// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/window/StatusLine.h"

#include "host/device/Device.h"
#include "host/workbench/recording/RecordButton.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/window/ElidedLabel.h"
#include "host/workbench/window/Lamp.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace host::workbench::window {

namespace {

using namespace std::chrono_literals;

/// When to be concerned, and when to stop relying on what is shown.
struct Limit
{
    std::chrono::milliseconds amber;
    std::chrono::milliseconds red;

    const char* concern(std::chrono::milliseconds value) const
    {
        return value >= red ? "red" : value >= amber ? "amber" : "";
    }
};

/// Data of a robot that moves comes many times a second.
constexpr Limit age{2s, 10s};

/// Nobody who steers by it would like it later.
constexpr Limit delay{1s, 5s};

// Tints of the window's own colour, whatever that is, so that text on them stays legible.
const char* const amber = "background: rgba(255, 170, 0, 90);";
const char* const red = "background: rgba(225, 60, 50, 90);";

template <class Label>
Label* label(const char* name)
{
    auto* label = new Label;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void setOutsideText(ElidedLabel& label, const QString& text)
{
    label.setText(values::shortened(text));
    label.setToolTip(values::plainToolTip(text));
}

} // namespace

StatusLine::StatusLine(device::Device& device, const QString& robot)
    : m_device(device),
      m_robotAddress(robot),
      m_lamp(new Lamp),
      m_words(label<ElidedLabel>("status")),
      m_duration(label<QLabel>("duration")),
      m_age(label<QLabel>("age")),
      m_retry(label<QLabel>("retry")),
      m_giveUp(new QToolButton),
      m_record(new recording::RecordButton(device)),
      m_robot(robot.isEmpty() ? nullptr : label<QLabel>("robot")),
      m_failure(label<ElidedLabel>("failure")),
      m_dismiss(new QToolButton),
      m_faults(label<ElidedLabel>("faults")),
      m_connection([this] { showConnection(); })
{
    m_age->setStyleSheet(QStringLiteral("[concern=\"amber\"] { %1 } [concern=\"red\"] { %2 }")
                             .arg(QLatin1String(amber), QLatin1String(red)));
    m_faults->setStyleSheet(amber);
    m_clock.setInterval(500ms);
    m_giveUp->setObjectName("giveUp");
    m_dismiss->setObjectName("dismiss");
    m_dismiss->setAutoRaise(true);
    m_dismiss->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    arrange();

    connect(m_giveUp, &QToolButton::clicked, this, [this] { m_device.reconnection().giveUp(); });
    connect(m_dismiss, &QToolButton::clicked, this, [this] {
        m_dismissed = m_device.connection().lastFailure().time;
        showFailure();
    });
    connect(&m_clock, &QTimer::timeout, this, &StatusLine::showTimes);
    connect(&device, &device::Device::connectionStateChanged, this,
            [this] { m_connection.request(); });
    connect(&device, &device::Device::statusChanged, this, [this] { m_connection.request(); });
    connect(&device.reconnection(), &device::connection::Reconnection::changed, this,
            [this] { m_connection.request(); });
    connect(&device.faults(), &device::faults::Faults::changed, this, &StatusLine::showFaults);
    translate();
}

/// Three lines: words, times, and what is wrong; the words take those that are empty.
void StatusLine::arrange()
{
    auto* times = new QHBoxLayout;
    times->setSpacing(12);
    times->addWidget(m_duration);
    times->addWidget(m_age);
    times->addWidget(m_retry);
    times->addWidget(m_giveUp);
    times->addStretch();
    times->addWidget(m_record);
    auto* wrong = new QHBoxLayout;
    wrong->setSpacing(4);
    wrong->addWidget(m_failure, 1);
    wrong->addWidget(m_dismiss);
    wrong->addWidget(m_faults, 1);
    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    top->addWidget(m_words, 1);
    if (m_robot)
        top->addWidget(m_robot, 0, Qt::AlignTop);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addLayout(top, 1);
    lines->addLayout(times);
    lines->addLayout(wrong);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setSpacing(8);
    layout->addWidget(m_lamp, 0, Qt::AlignTop);
    layout->addLayout(lines, 1);
    fixHeight();
}

void StatusLine::fixHeight()
{
    const int line = m_words->minimumSizeHint().height();
    m_lamp->setFixedHeight(line); // beside the first line
    if (m_robot)
        m_robot->setFixedHeight(line); // likewise
    const QMargins margins = layout()->contentsMargins();
    setFixedHeight(
        line + std::max({line, m_giveUp->sizeHint().height(), m_record->sizeHint().height()}) +
        std::max(line, m_dismiss->sizeHint().height()) + margins.top() + margins.bottom());
}

void StatusLine::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        translate();
    else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fixHeight();
    QWidget::changeEvent(event);
}

void StatusLine::translate()
{
    m_age->setToolTip(
        tr("Age of the newest data that the robot sends continuously, or how late it comes: how "
           "much longer than the quickest data it was on its way."));
    m_giveUp->setText(tr("Do not wait"));
    m_giveUp->setToolTip(tr("Make no further attempts to connect."));
    m_dismiss->setToolTip(tr("Put this error away."));
    m_dismiss->setAccessibleName(tr("Dismiss"));
    if (m_robot)
        m_robot->setText(tr("Simulated robot: %1").arg(m_robotAddress));
    showConnection();
    showFaults();
}

void StatusLine::showFaults()
{
    m_faults->setVisible(m_device.faults().isAnyOn());
    setOutsideText(*m_faults, m_device.faults().summary());
}

void StatusLine::showConnection()
{
    const int state = m_device.connectionState();
    m_lamp->setState(state, m_device.reconnection().isLost());
    setOutsideText(*m_words, m_device.status());
    showFailure();

    if (m_device.connection().connectedFor() || m_device.reconnection().isTrying())
        m_clock.start();
    else
        m_clock.stop();
    showTimes();
}

void StatusLine::showFailure()
{
    // What has just gone wrong is the status itself.
    const auto& failure = m_device.connection().lastFailure();
    const bool isShown = !failure.words.isEmpty() && failure.words != m_device.status() &&
                         failure.time != m_dismissed;
    m_failure->setVisible(isShown);
    m_dismiss->setVisible(isShown);
    setOutsideText(*m_failure,
                   tr("Last error, %1: %2")
                       .arg(failure.time.toString(QStringLiteral("HH:mm:ss")), failure.words));
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
    if (!duration)
        return;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(*duration).count();
    m_duration->setText(tr("Connected for %1:%2:%3")
                            .arg(seconds / 3600)
                            .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
                            .arg(seconds % 60, 2, 10, QLatin1Char('0')));
    showAge(*duration);
}

void StatusLine::showAge(std::chrono::milliseconds connectedFor)
{
    using std::chrono::duration_cast;
    using std::chrono::seconds;
    const auto newest = m_device.connection().dataAge();
    const auto lateness = m_device.connection().followers().delay().value_or(0ms);
    QString concern = QLatin1String(age.concern(newest.value_or(connectedFor)));
    if (!newest) {
        m_age->setText(tr("No data yet"));
    } else if (!concern.isEmpty()) {
        m_age->setText(tr("Newest data: %1 s old").arg(duration_cast<seconds>(*newest).count()));
    } else {
        concern = QLatin1String(delay.concern(lateness));
        m_age->setText(concern.isEmpty()
                           ? tr("Data is up to date")
                           : tr("Data is %1 s late").arg(duration_cast<seconds>(lateness).count()));
    }
    if (m_age->property("concern").toString() != concern) {
        m_age->setProperty("concern", concern);
        m_age->setStyleSheet(m_age->styleSheet()); // looks at the property again
    }
}

} // namespace host::workbench::window
