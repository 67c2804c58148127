// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Control.h"

namespace robot::network {

Control::Answer Control::acquire(const rosbridge::server::Peer& peer)
{
    if (m_holder == peer)
        return {true, tr("this client is already in control")};
    if (m_holder) {
        const QString reason = tr("%1 is in control").arg(m_holder->name);
        Q_EMIT refused(peer, reason);
        return {false, reason};
    }
    m_holder = peer;
    Q_EMIT acquired(peer);
    return {true, tr("this client is in control")};
}

Control::Answer Control::release(const rosbridge::server::Peer& peer)
{
    if (m_holder != peer)
        return {false, tr("this client is not in control")};
    leave(peer);
    return {true, tr("control is released")};
}

void Control::leave(const rosbridge::server::Peer& peer)
{
    if (m_holder != peer)
        return;
    m_holder.reset();
    Q_EMIT released(peer);
}

QString Control::refusal(const rosbridge::server::Peer& peer) const
{
    if (!m_holder)
        return tr("no client is in control; call /control/acquire first");
    if (m_holder != peer)
        return tr("%1 is in control; it must call /control/release first").arg(m_holder->name);
    return QString();
}

} // namespace robot::network
