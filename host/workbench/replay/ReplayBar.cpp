// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/replay/ReplayBar.h"

#include "host/device/replay/Replay.h"
#include "host/workbench/values/OutsideText.h"
#include "host/workbench/window/ElidedLabel.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

namespace host::workbench::replay {

using namespace std::chrono_literals;

using device::recording::RecordedCall;
using device::replay::PlayedCall;
using device::replay::Replay;
using std::chrono::duration_cast;
using std::chrono::milliseconds;

namespace {

constexpr double speeds[] = {0.1, 0.25, 0.5, 1, 2, 5, 10, 20}; // and as fast as it goes
constexpr int pages = 20;                                      // of the slider

int inMilliseconds(Replay::Time time)
{
    return static_cast<int>(duration_cast<milliseconds>(time).count());
}

/// As in 1:02:03.456.
QString inWords(Replay::Time time)
{
    const int all = inMilliseconds(time);
    return QStringLiteral("%1:%2:%3.%4")
        .arg(all / 3600000)
        .arg(all / 60000 % 60, 2, 10, QLatin1Char('0'))
        .arg(all / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(all % 1000, 3, 10, QLatin1Char('0'));
}

} // namespace

ReplayBar::ReplayBar(Replay& replay, const QString& source)
    : m_replay(replay),
      m_source(source),
      m_position(new QSlider(Qt::Horizontal)),
      m_time(new QLabel),
      m_play(addButton("play", Qt::Key_F5)),
      m_step(addButton("step", Qt::Key_F6)),
      m_longCall(addButton("longCall", Qt::Key_F7)),
      m_loop(new QCheckBox),
      m_speedLabel(new QLabel),
      m_speed(new QComboBox),
      m_note(new window::ElidedLabel),
      m_present(new window::ElidedLabel),
      m_shown([this] { refresh(); })
{
    setObjectName("replayBar");
    m_position->setObjectName("position");
    m_position->setRange(0, inMilliseconds(replay.duration()));
    m_position->setSingleStep(inMilliseconds(1s));
    m_position->setPageStep(qMax(inMilliseconds(1s), m_position->maximum() / pages));
    m_time->setObjectName("time");
    m_loop->setObjectName("loop");
    m_speed->setObjectName("speed");
    m_speed->setSizeAdjustPolicy(QComboBox::AdjustToContents); // of each language
    m_speedLabel->setBuddy(m_speed);
    m_note->setObjectName("note");
    m_present->setObjectName("present");
    arrange();

    connect(m_position, &QSlider::valueChanged, this,
            [this](int value) { m_replay.jump(milliseconds(value)); });
    connect(m_play->defaultAction(), &QAction::triggered, this, [this] {
        if (m_replay.isPlaying())
            m_replay.pause();
        else
            m_replay.play();
    });
    connect(m_step->defaultAction(), &QAction::triggered, this, [this] {
        m_replay.pause();
        m_replay.step();
    });
    connect(m_longCall->defaultAction(), &QAction::triggered, this, &ReplayBar::findLongCall);
    connect(m_loop, &QCheckBox::toggled, &replay, &Replay::setLooping);
    connect(m_speed, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ReplayBar::chooseSpeed);
    connect(&replay, &Replay::changed, this, [this] { m_shown.request(); });
    translate();
}

QToolButton* ReplayBar::addButton(const char* name, const QKeySequence& key)
{
    auto* action = new QAction(this);
    action->setObjectName(name);
    action->setShortcut(key);
    addAction(action);
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return button;
}

void ReplayBar::arrange()
{
    auto* place = new QHBoxLayout;
    place->addWidget(m_position, 1);
    place->addWidget(m_time);
    auto* controls = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{m_play, m_step, m_longCall, m_loop})
        controls->addWidget(widget);
    controls->addSpacing(12);
    controls->addWidget(m_speedLabel);
    controls->addWidget(m_speed);
    controls->addSpacing(12);
    controls->addWidget(m_note, 1, Qt::AlignVCenter);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(6, 2, 6, 2);
    lines->setSpacing(2);
    lines->addLayout(place);
    lines->addLayout(controls);
    lines->addWidget(m_present);
}

void ReplayBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void ReplayBar::fillSpeeds()
{
    const QSignalBlocker blocker(m_speed);
    const int chosen = m_speed->currentIndex();
    m_speed->clear();
    for (const double speed : speeds)
        m_speed->addItem(locale().toString(speed) + QStringLiteral("×"), speed);
    m_speed->addItem(tr("As fast as it goes"));
    m_speed->setCurrentIndex(chosen < 0 ? m_speed->findData(1.0) : chosen);
}

void ReplayBar::translate()
{
    m_position->setAccessibleName(tr("Position"));
    m_position->setToolTip(tr("Position in the recording. Arrow keys move it by a second."));
    m_play->setMinimumWidth(0);
    for (const QString& text : {tr("&Play"), tr("&Pause")}) { // so that nothing moves
        m_play->defaultAction()->setText(text);
        m_play->setMinimumWidth(qMax(m_play->minimumWidth(), m_play->sizeHint().width()));
    }
    m_step->defaultAction()->setText(tr("&Next call"));
    m_step->defaultAction()->setToolTip(tr("Play one call and stop (F6)."));
    m_longCall->defaultAction()->setText(tr("Next &long call"));
    m_longCall->defaultAction()->setToolTip(
        tr("Go to the next call that took more than %1 ms when it was recorded, and stop (F7).")
            .arg(device::trace::PluginCall::tooLong.count()));
    m_loop->setText(tr("L&oop"));
    m_loop->setToolTip(tr("Begin again at the end."));
    m_speedLabel->setText(tr("Sp&eed:"));
    m_speed->setToolTip(tr("How many times as fast as recorded."));
    fillSpeeds();
    m_note->setText(tr("Replay without a robot"));
    m_note->setToolTip(values::plainToolTip(
        tr("Replay of %1. There is no robot: nothing is sent or stored.").arg(m_source)));
    refresh();
}

void ReplayBar::chooseSpeed(int index)
{
    const QVariant speed = m_speed->itemData(index);
    m_replay.setSpeed(speed.isValid() ? std::optional<double>(speed.toDouble()) : std::nullopt);
}

void ReplayBar::findLongCall()
{
    if (!m_replay.jumpToLongCall())
        Q_EMIT problem(tr("No call after this one took more than %1 ms.")
                           .arg(device::trace::PluginCall::tooLong.count()));
}

void ReplayBar::refresh()
{
    if (!m_position->isSliderDown()) {
        const QSignalBlocker blocker(m_position);
        m_position->setValue(inMilliseconds(m_replay.position()));
    }
    m_time->setText(QStringLiteral("%1 / %2").arg(replay::inWords(m_replay.position()),
                                                  replay::inWords(m_replay.duration())));
    const bool isPlaying = m_replay.isPlaying();
    m_play->defaultAction()->setText(isPlaying ? tr("&Pause") : tr("&Play"));
    m_play->defaultAction()->setToolTip(isPlaying ? tr("Stop here (F5).")
                                                  : tr("Play on from here (F5)."));
    const QString words = this->words();
    m_present->setText(values::shortened(words));
    m_present->setToolTip(values::plainToolTip(words));
}

QString ReplayBar::words() const
{
    const auto& present = m_replay.present();
    return present ? inWords(*present) : tr("Before the first call");
}

QString ReplayBar::inWords(const PlayedCall& call)
{
    const RecordedCall& recorded = call.call;
    QString function = recorded.function;
    if (!recorded.widgetClass.isEmpty())
        function.prepend(recorded.widgetClass + QStringLiteral("::"));
    if (!recorded.widgetName.isEmpty())
        function += QStringLiteral(" [%1]").arg(recorded.widgetName);
    const QString time = replay::inWords(call.time);
    const bool isToPlugin = recorded.part == RecordedCall::Part::Begin;
    if (isToPlugin && recorded.duration == 0ns)
        return tr("%1: %2, under way when the recording ended").arg(time, function);
    const QString duration = QLocale().toString(
        std::chrono::duration<double, std::milli>(recorded.duration).count(), 'f', 3);
    if (recorded.hasThrown)
        return tr("%1: %2 took %3 ms and threw an exception").arg(time, function, duration);
    return isToPlugin ? tr("%1: %2 took %3 ms").arg(time, function, duration)
                      : tr("%1: the plugin called %2 by itself, which took %3 ms")
                            .arg(time, function, duration);
}

} // namespace host::workbench::replay
