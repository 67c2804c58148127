// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Stop.h"

#include <utility>

namespace robot::network {

QString Stop::engage()
{
    if (std::exchange(m_isEngaged, true))
        return tr("the robot was stopped already");
    Q_EMIT engaged();
    return tr("the robot is stopped");
}

QString Stop::release()
{
    if (!std::exchange(m_isEngaged, false))
        return tr("the robot was not stopped");
    return tr("the stop is released; nothing moves until it is commanded");
}

QString Stop::refusal() const
{
    return m_isEngaged ? tr("the robot is stopped; the client in control must call /stop/release "
                            "first")
                       : QString();
}

QString Stop::qualified(const QString& message) const
{
    return m_isEngaged ? tr("%1; the robot is stopped: nothing moves").arg(message) : message;
}

} // namespace robot::network
