// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_AUTHORITY_H
#define ROSBRIDGE_SERVER_AUTHORITY_H

#include <QString>

namespace rosbridge::server {

struct Peer;

/// Decides whom the commands obey that require control. The registries ask it before each of them.
class Authority
{
public:
    virtual ~Authority() = default;

    /// Why @p peer may not command now, for that peer to read; empty if it may.
    virtual QString refusal(const Peer& peer) const = 0;
};

} // namespace rosbridge::server

#endif
