// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/Gesture.h"

#include "host/workbench/script/Controls.h"

namespace host::workbench::script {

Gesture::Gesture(const std::function<void()>& act) : m_state(std::make_shared<State>())
{
    m_state->before = Controls::topmost();
    QMetaObject::invokeMethod(
        qApp,
        [act, state = m_state] {
            state->isBegun = true;
            act();
            state->isEnded = true;
        },
        Qt::QueuedConnection);
}

Progress Gesture::operator()() const
{
    const QWidget* const top = Controls::topmost();
    const bool isHeldUp =
        m_state->isBegun && top && top != m_state->before && Controls::isOnScreen(*top);
    return m_state->isEnded || isHeldUp ? Progress::done()
                                        : Progress::waiting(tr("the program does not react"));
}

} // namespace host::workbench::script
