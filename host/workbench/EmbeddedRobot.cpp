// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/EmbeddedRobot.h"

namespace host::workbench {

using rosbridge::protocol::Address;

namespace {

constexpr quint16 anyPort = 0;

Address loopback(quint16 port)
{
    return {QString::fromLatin1(Address::defaultHost), port};
}

} // namespace

EmbeddedRobot::EmbeddedRobot(quint16 port, quint32 seed) : m_robot(seed)
{
    if (!m_robot.listen(loopback(port), &m_error) && m_robot.listen(loopback(anyPort), &m_error))
        m_error.clear();
}

QString EmbeddedRobot::address() const
{
    return m_robot.port() == 0 ? QString() : loopback(m_robot.port()).toString();
}

} // namespace host::workbench
