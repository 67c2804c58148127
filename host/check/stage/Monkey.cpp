// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Monkey.h"

#include "host/check/stage/Stage.h"
#include "host/device/trace/CallUnderWay.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace host::check::stage {

Monkey::Monkey(Stage& stage, Next next) : m_stage(stage), m_next(std::move(next)) {}

void Monkey::run()
{
    later(&Monkey::act);
    m_loop.exec();
}

void Monkey::later(void (Monkey::*step)())
{
    QTimer::singleShot(0, &m_context, [this, step] { (this->*step)(); });
}

void Monkey::act()
{
    const std::optional<Action> action = m_stage.widget() ? m_next() : std::nullopt;
    if (!action)
        return close();
    later(&Monkey::act); // first: the action may open a menu, and wait in there
    const device::trace::CallUnderWay call("reaction to a person's action");
    perform(*action, m_stage);
}

void Monkey::close()
{
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const above = popup ? popup : QApplication::activeModalWidget();
    if (!above)
        return m_loop.quit();
    above->close();
    later(&Monkey::close);
}

} // namespace host::check::stage
