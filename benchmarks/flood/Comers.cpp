// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Comers.h"

#include "rosbridge/protocol/Address.h"
#include "rosbridge/websocket/Handshake.h"

#include <QTcpSocket>

#include <chrono>
#include <thread>

namespace {

constexpr int patience = 1000; // in milliseconds, for each of them

} // namespace

Comers::Comers(const QString& address, int rate) : m_address(address), m_rate(rate)
{
    start();
}

Comers::~Comers()
{
    m_isOver = true;
    wait();
}

void Comers::run()
{
    using Clock = std::chrono::steady_clock;
    const auto address = *rosbridge::protocol::Address::parse(m_address, nullptr);
    for (auto due = Clock::now(); !m_isOver; due += std::chrono::microseconds(1000000 / m_rate)) {
        std::this_thread::sleep_until(due);
        QTcpSocket socket;
        socket.connectToHost(address.host, address.port);
        if (!socket.waitForConnected(patience))
            continue;
        socket.write(rosbridge::websocket::request(address, rosbridge::websocket::randomKey()));
        socket.waitForReadyRead(patience);
        socket.abort();
        ++m_count;
    }
}
