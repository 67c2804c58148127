// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_CLIENT_TESTS_RAWLINK_H
#define ROSBRIDGE_CLIENT_TESTS_RAWLINK_H

#include "Peer.h"
#include "RawPeer.h"
#include "Witness.h"

#include "rosbridge/client/Client.h"

#include <QtTest>

/// A client with an open link to a peer that sends what the test says, byte by byte.
class RawLink
{
public:
    RawLink()
    {
        client.open(peer.address());
        peer.shakeHands();
        QTRY_COMPARE_WITH_TIMEOUT(client.state(), rosbridge::client::Client::State::Open, patience);
    }

    RawPeer peer;
    rosbridge::client::Client client{noHurry()};
    Witness witness{client};
};

#endif
