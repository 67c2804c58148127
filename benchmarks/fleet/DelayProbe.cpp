// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DelayProbe.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto interval = 5ms;

} // namespace

DelayProbe::DelayProbe(QThread& asked)
{
    moveToThread(&asked);
    m_thread = std::thread(&DelayProbe::post, this);
}

DelayProbe::~DelayProbe()
{
    end();
}

void DelayProbe::post()
{
    for (auto due = Clock::now(); !m_isOver; due += interval) {
        std::this_thread::sleep_until(due);
        const auto posted = Clock::now();
        QMetaObject::invokeMethod(
            this,
            [this, posted] {
                const std::chrono::duration<double, std::milli> delay = Clock::now() - posted;
                m_delays.push_back(delay.count());
            },
            Qt::QueuedConnection);
    }
}

std::vector<double> DelayProbe::finish()
{
    end();
    // The latest ones count as well.
    if (thread() == QThread::currentThread())
        QCoreApplication::sendPostedEvents(this);
    else
        QMetaObject::invokeMethod(
            this, [] {}, Qt::BlockingQueuedConnection);
    std::sort(m_delays.begin(), m_delays.end());
    return std::move(m_delays);
}

void DelayProbe::end()
{
    m_isOver = true;
    if (m_thread.joinable())
        m_thread.join();
}
