// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_STUCKPORT_H
#define ROBOT_LINK_TESTS_STUCKPORT_H

#include "rosbridge/protocol/Address.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/// A port of this machine that neither accepts nor refuses: its queue is full.
class StuckPort
{
public:
    StuckPort()
    {
        m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
        m_filler = ::socket(AF_INET, SOCK_STREAM, 0);
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(m_address);
        auto* address = reinterpret_cast<sockaddr*>(&m_address);
        m_isStuck = ::bind(m_listener, address, size) == 0 && ::listen(m_listener, 0) == 0 &&
                    ::getsockname(m_listener, address, &size) == 0 &&
                    ::connect(m_filler, address, size) == 0;
    }

    ~StuckPort()
    {
        ::close(m_filler);
        ::close(m_listener);
    }

    StuckPort(const StuckPort&) = delete;
    StuckPort& operator=(const StuckPort&) = delete;

    bool isStuck() const { return m_isStuck; }

    rosbridge::protocol::Address address() const
    {
        return {"127.0.0.1", ntohs(m_address.sin_port)};
    }

private:
    int m_listener = -1;
    int m_filler = -1;
    sockaddr_in m_address = {};
    bool m_isStuck = false;
};

#endif
