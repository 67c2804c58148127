// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ClickProbe.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <algorithm>

namespace {

using namespace std::chrono_literals;

constexpr auto pause = 20ms; // between two clicks

double milliseconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

} // namespace

ClickProbe::ClickProbe(QAbstractButton& button) : m_button(button)
{
    m_connection = QObject::connect(&button, &QAbstractButton::clicked, [this] {
        m_delays.push_back(milliseconds(Clock::now() - m_pressed.load()));
        m_isWaiting = false;
    });
    m_thread = std::thread(&ClickProbe::click, this);
}

ClickProbe::~ClickProbe()
{
    m_isOver = true;
    m_thread.join();
    QObject::disconnect(m_connection);
}

std::vector<double> ClickProbe::delays() const
{
    std::vector<double> delays = m_delays;
    if (m_isWaiting)
        delays.push_back(milliseconds(Clock::now() - m_pressed.load()));
    std::sort(delays.begin(), delays.end());
    return delays;
}

void ClickProbe::click()
{
    for (; !m_isOver; std::this_thread::sleep_for(pause)) {
        if (m_isWaiting)
            continue;
        m_pressed = Clock::now();
        m_isWaiting = true;
        const QPointF place(2, 2);
        const auto post = [&](QEvent::Type type, Qt::MouseButtons buttons) {
            QCoreApplication::postEvent(
                &m_button,
                new QMouseEvent(type, place, place, Qt::LeftButton, buttons, Qt::NoModifier));
        };
        post(QEvent::MouseButtonPress, Qt::LeftButton);
        post(QEvent::MouseButtonRelease, Qt::NoButton);
    }
}
