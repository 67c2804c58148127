// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/operation/StopButton.h"

#include "host/device/operation/Stopping.h"
#include "host/workbench/operation/StopKey.h"
#include "host/workbench/values/OutsideText.h"

#include <QEvent>

#include <algorithm>

namespace host::workbench::operation {

using device::operation::Stopping;

namespace {

/// The same red in every appearance: people look for it.
const char* const redStyle = R"(
    QPushButton { background: #b71c1c; color: white; border: 2px solid #b71c1c; border-radius: 4px;
                  padding: 3px 10px; font-weight: bold; }
    QPushButton[stopped="true"] { background: white; color: #b71c1c; }
    QPushButton:pressed { background: #7f0000; color: white; }
    QPushButton:focus { border-color: palette(window-text); }
)";

QString wordsOf(Stopping::State state)
{
    switch (state) {
    case Stopping::State::Stopping:
        return StopButton::tr("Stopping…");
    case Stopping::State::Stopped:
        return StopButton::tr("Stopped");
    case Stopping::State::Free:
        break;
    }
    return StopButton::tr("Stop (%1)").arg(StopKey::name());
}

} // namespace

StopButton::StopButton(Stopping& stopping) : m_stopping(stopping)
{
    setObjectName("stop");
    setStyleSheet(redStyle);
    connect(this, &QPushButton::pressed, &stopping, &Stopping::stop); // waits for no release
    connect(&stopping, &Stopping::changed, this, &StopButton::refresh);
    refresh();
}

QSize StopButton::sizeHint() const
{
    using State = Stopping::State;
    int widest = 0;
    for (const State state : {State::Free, State::Stopping, State::Stopped})
        widest = std::max(widest, fontMetrics().horizontalAdvance(wordsOf(state)));
    return QPushButton::sizeHint() + QSize(widest - fontMetrics().horizontalAdvance(text()), 0);
}

void StopButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QPushButton::changeEvent(event);
}

void StopButton::refresh()
{
    const Stopping::State state = m_stopping.state();
    setText(wordsOf(state));
    const QString means = m_stopping.means();
    setAccessibleDescription(means);
    const QString key = tr("%1 does the same to the robots of all devices in the window, wherever "
                           "the keyboard focus is.")
                            .arg(StopKey::name());
    setToolTip(values::plainToolTip(means + '\n' + key));
    const bool isStopped = state == Stopping::State::Stopped;
    if (property("stopped").toBool() == isStopped)
        return;
    setProperty("stopped", isStopped);
    setStyleSheet(styleSheet()); // looks at the property again
}

} // namespace host::workbench::operation
