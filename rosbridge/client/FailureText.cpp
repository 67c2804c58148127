// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/client/FailureText.h"

namespace rosbridge::client {

using websocket::Connector;

QString FailureText::of(Connector::Failure failure, const protocol::Address& address,
                        const QString& why)
{
    const QString server = address.toString();
    switch (failure) {
    case Connector::Failure::Refused:
        return tr("%1 refuses the connection. Check the port and whether the robot's program is "
                  "running.")
            .arg(server);
    case Connector::Failure::NoHost:
        return tr("There is no host \"%1\". Check the address and the network.").arg(address.host);
    case Connector::Failure::Unreachable:
        return tr("%1 cannot be reached: %2. Check the address and the network.").arg(server, why);
    case Connector::Failure::NotWebSocket:
        return tr("%1 answers, but not as a robot: %2. Check whether the port is the robot's.")
            .arg(server, why);
    case Connector::Failure::NoTls:
        return tr("%1 needs an encrypted connection, but OpenSSL is missing on this computer. "
                  "Install the package libssl3 and start again.")
            .arg(server);
    case Connector::Failure::NotTls:
        return tr("%1 answers, but does not encrypt. Check the port, or write ws:// in place of "
                  "wss://: then nothing is encrypted.")
            .arg(server);
    case Connector::Failure::Untrusted:
        return tr("%1 was not connected to. %2").arg(server, why);
    case Connector::Failure::NeedsLogin:
        return tr("%1 wants a user name and a password (\"%2\"). This program cannot log in: have "
                  "the server let this computer in without, or use another way to the robot, as "
                  "through a tunnel.")
            .arg(server, why);
    case Connector::Failure::Forbidden:
        return tr("%1 does not let this computer in (\"%2\"). Change on the server who may "
                  "connect.")
            .arg(server, why);
    case Connector::Failure::NoSuchPath:
        return tr("%1 is there, but has no robot at this path (\"%2\"). Check the port in the "
                  "address, and the path after it.")
            .arg(server, why);
    case Connector::Failure::Moved:
        return tr("%1 refers to another address, \"%2\". If that is the robot's, enter it, "
                  "beginning with ws:// or wss://.")
            .arg(server, why);
    }
    return {};
}

} // namespace rosbridge::client
