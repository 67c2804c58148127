// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Whatever a robot tells of itself, the view of it takes it whole or not at all, and can paint what
// it has.
#include "LinkInput.h"
#include "Require.h"
#include "tests/host/workbench/robotview/Tell.h"

#include "host/workbench/robotview/WorldView.h"

#include <QApplication>

#include <algorithm>
#include <cmath>

using namespace host::workbench::robotview;
using namespace std::chrono_literals;

namespace {

bool isFinite(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isFinite(const std::optional<Transform>& place)
{
    return !place || (isFinite(place->onFloor().map(QPointF(0, 0))) &&
                      isFinite(place->onFloor().map(QPointF(1, 1))));
}

std::optional<RobotState::Topic> topicOf(const QCborMap& message)
{
    const QString name = message.value(QLatin1String("topic")).toString();
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto topic = static_cast<RobotState::Topic>(i);
        if (name == RobotState::info(topic).topic.name)
            return topic;
    }
    return std::nullopt;
}

/// What is shown can be shown: finite, and within its bounds.
void requireSound(const RobotState& state)
{
    require(isFinite(state.robotPlace()) && isFinite(state.mapPlace()));
    require(isFinite(state.raysPlace()));
    require(state.map() || !state.mapPlace());
    require(state.rays() || !state.raysPlace());
    if (const auto& rays = state.rays()) {
        require(rays->hits.size() < rays->swept.size());
        require(std::all_of(rays->hits.cbegin(), rays->hits.cend(), [&rays](const QPointF& hit) {
            return std::hypot(hit.x(), hit.y()) <= rays->reach * 1.001;
        }));
    }
    if (const auto& map = state.map()) {
        for (int row = 0; row < map->cells.height(); ++row) {
            const uchar* const line = map->cells.constScanLine(row);
            require(std::all_of(line, line + map->cells.width(),
                                [](uchar cell) { return cell <= GridMap::unknown; }));
        }
    }
    const auto& lines = state.path().lines();
    require(lines.size() <= Path::mostLines);
    require(std::all_of(lines.cbegin(), lines.cend(), [](const QLineF& line) {
        return isFinite(line.p1()) && isFinite(line.p2());
    }));
    for (int i = 0; i < RobotState::axisCount; ++i) {
        for (const auto& position : {state.axis(i).target, state.axis(i).present})
            require(!position || std::isfinite(*position));
    }
}

/// All but the notes.
void requireSame(const RobotState& state, const RobotState& before)
{
    require(state.map().has_value() == before.map().has_value());
    require(!state.map() || state.map()->cells.cacheKey() == before.map()->cells.cacheKey());
    require(state.rays().has_value() == before.rays().has_value());
    require(!state.rays() || state.rays()->swept == before.rays()->swept);
    require(state.path().lines() == before.path().lines());
    const auto isSamePlace = [](const std::optional<Transform>& a,
                                const std::optional<Transform>& b) {
        return a.has_value() == b.has_value() && (!a || a->onFloor() == b->onFloor());
    };
    require(isSamePlace(state.robotPlace(), before.robotPlace()));
    require(isSamePlace(state.mapPlace(), before.mapPlace()));
    require(isSamePlace(state.raysPlace(), before.raysPlace()));
    for (int i = 0; i < RobotState::axisCount; ++i) {
        require(state.axis(i).target == before.axis(i).target);
        require(state.axis(i).present == before.axis(i).present);
    }
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto topic = static_cast<RobotState::Topic>(i);
        require(state.isSet(topic) == before.isSet(topic));
    }
}

/// The link of a robot in the order of the frames. A frame that is no message of a known topic lets
/// the others grow old.
class Robot
{
public:
    Robot() { m_state.begin(); }

    void receive(const QCborMap& message)
    {
        const auto topic = topicOf(message);
        m_now += topic ? 1ms : 3s;
        if (!topic)
            return;
        const RobotState before = m_state;
        tell(m_state, *topic, message.value(QLatin1String("msg")).toMap(), m_now);
        requireSound(m_state);
        if (isRefused(*topic))
            requireSame(m_state, before);
    }

    /// As a whole, and from near.
    void paint()
    {
        WorldView view(m_state);
        view.resize(160, 120);
        view.grab();
        require(view.toPixels().isInvertible());
        view.setFollowing(true);
        view.zoom(1e6, {0, 0});
        view.grab();
        require(view.toPixels().isInvertible());
    }

    void requireWords()
    {
        for (const bool isConnected : {true, false}) {
            if (!isConnected)
                m_state.end(m_now);
            for (const QString& note : m_state.notes(m_now))
                require(!note.isEmpty());
        }
    }

private:
    bool isRefused(RobotState::Topic topic) const
    {
        const QString refused = QLatin1String("A message on the topic %1 was ignored: ");
        const QString ofTopic = refused.arg(RobotState::info(topic).topic.name);
        const QStringList notes = m_state.notes(m_now);
        return std::any_of(notes.cbegin(), notes.cend(),
                           [&ofTopic](const QString& note) { return note.startsWith(ofTopic); });
    }

    RobotState m_state;
    RobotState::TimePoint m_now = RobotState::Clock::now();
};

} // namespace

/// What the fonts are looked up with keeps what it has read.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: Qt's threads end after the fuzzer has.
    static const auto* const application = new QApplication(*argc, *argv);
    return application ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Robot robot;
    for (const InputFrame& frame :
         framesOf({reinterpret_cast<const char*>(data), static_cast<int>(size)})) {
        QString error;
        robot.receive(decode(frame, &error).value_or(QCborMap()));
    }
    robot.paint();
    robot.requireWords();
    return 0;
}
