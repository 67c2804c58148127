// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Census.h"

#include <QAbstractEventDispatcher>
#include <QAbstractSocket>
#include <QObject>
#include <QThread>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <unordered_set>

// What Qt calls when an object is made or goes: functions in a table of its own.
extern quintptr Q_CORE_EXPORT qtHookData[];

namespace {

constexpr int objectAdded = 3;
constexpr int objectRemoved = 4;

std::mutex s_mutex; // objects are made in any thread
std::unordered_set<QObject*>& all()
{
    static auto* const s_all = new std::unordered_set<QObject*>; // outlives all of them
    return *s_all;
}

void onMade(QObject* object)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    all().insert(object);
}

void onGone(QObject* object)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    all().erase(object);
}

/// Objects of other threads may be on their way out.
bool isHere(const QObject& object)
{
    return object.thread() == QThread::currentThread();
}

/// One of QTimer::singleShot() ends by itself, long after it has become pointless.
bool isSingleShot(const QObject& object)
{
    return isHere(object) && std::strcmp(object.metaObject()->className(), "QSingleShotTimer") == 0;
}

} // namespace

void census::begin()
{
    qtHookData[objectAdded] = reinterpret_cast<quintptr>(&onMade);
    qtHookData[objectRemoved] = reinterpret_cast<quintptr>(&onGone);
}

std::size_t census::objects()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return static_cast<std::size_t>(std::count_if(
        all().begin(), all().end(), [](const QObject* object) { return !isSingleShot(*object); }));
}

std::size_t census::timers()
{
    const auto* const dispatcher = QAbstractEventDispatcher::instance();
    const std::lock_guard<std::mutex> lock(s_mutex);
    std::size_t count = 0;
    for (QObject* object : all()) {
        if (isHere(*object) && !isSingleShot(*object))
            count += static_cast<std::size_t>(dispatcher->registeredTimers(object).size());
    }
    return count;
}

std::size_t census::sockets()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return static_cast<std::size_t>(
        std::count_if(all().begin(), all().end(), [](const QObject* object) {
            return isHere(*object) && qobject_cast<const QAbstractSocket*>(object);
        }));
}
