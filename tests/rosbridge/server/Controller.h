// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_TESTS_CONTROLLER_H
#define ROSBRIDGE_SERVER_TESTS_CONTROLLER_H

#include "rosbridge/server/Authority.h"
#include "rosbridge/server/Peer.h"

#include <optional>

/// Lets the one peer command that a test names.
class Controller : public rosbridge::server::Authority
{
public:
    void acquire(const rosbridge::server::Peer& peer) { m_holder = peer; }

    QString refusal(const rosbridge::server::Peer& peer) const override
    {
        if (m_holder == peer)
            return QString();
        return QStringLiteral("%1 is not in control").arg(peer.name);
    }

private:
    std::optional<rosbridge::server::Peer> m_holder;
};

#endif
