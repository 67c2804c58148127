// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/GuiTime.h"

#include <QMetaEnum>
#include <QObject>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace host::check::stage {

namespace {

GuiTime* s_current = nullptr;

} // namespace

GuiTime::GuiTime() : m_statistics(open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC))
{
    s_current = this;
}

GuiTime::~GuiTime()
{
    s_current = nullptr;
    if (m_statistics >= 0)
        close(m_statistics);
}

qint64 GuiTime::now() const
{
    using Clock = std::chrono::steady_clock;
    const qint64 time =
        std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
            .count();
    std::array<char, 64> text{}; // how long it ran, and how long it was ready to and did not
    if (m_statistics < 0 || pread(m_statistics, text.data(), text.size() - 1, 0) <= 0)
        return time;
    char* end = nullptr;
    constexpr int decimal = 10;
    std::strtoll(text.data(), &end, decimal);
    return time - std::strtoll(end, nullptr, decimal);
}

void GuiTime::note(qint64 nanoseconds, const Words& words)
{
    m_longest = std::max(m_longest, nanoseconds);
    if (nanoseconds <= m_named + m_named / 10) // an event around it takes little longer
        return;
    m_named = nanoseconds;
    m_words = words();
}

void GuiTime::measure(const Words& words, const std::function<void()>& call)
{
    const qint64 begin = now();
    call();
    note(now() - begin, words);
}

qint64 GuiTime::milliseconds() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::nanoseconds(m_longest))
        .count();
}

QString GuiTime::nameOf(QEvent::Type type)
{
    const QString name = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
    return name.isEmpty() ? QString::number(type) : name;
}

bool GuiTime::measureEvent(const QObject& receiver, QEvent::Type type,
                           const std::function<bool()>& deliver)
{
    if (!s_current)
        return deliver();
    const char* const name = receiver.metaObject()->className(); // it may be gone afterwards
    const qint64 begin = s_current->now();
    const bool isHandled = deliver();
    if (s_current)
        s_current->note(s_current->now() - begin, [&] {
            return QStringLiteral("the event %1 of a %2").arg(nameOf(type), QLatin1String(name));
        });
    return isHandled;
}

} // namespace host::check::stage
