// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_ROBOTVIEW_TOLDROBOT_H
#define TESTS_HOST_WORKBENCH_ROBOTVIEW_TOLDROBOT_H

#include "RobotMessages.h"
#include "Tell.h"

#include "host/workbench/robotview/RobotState.h"

#include <QPointF>
#include <QtTest>

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(QCborMap)

/// A robot as the tests tell of it, and messages of it that are right.
namespace told_robot {

using namespace host::workbench::robotview;
using message::with;

inline constexpr double pi = 3.14159265358979323846;
inline constexpr double infinite = std::numeric_limits<double>::infinity();
inline constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

/// A robot that is connected, and its clock.
struct Robot
{
    Robot()
    {
        state.begin();
        for (int i = 0; i < RobotState::TopicCount; ++i)
            state.setPublished(static_cast<RobotState::Topic>(i), true, now);
    }

    void tell(RobotState::Topic topic, const QCborMap& message)
    {
        ::tell(state, topic, message, now);
    }

    QString notes() const { return state.notes(now).join('\n'); }

    RobotState::TimePoint now = RobotState::Clock::now();
    RobotState state;
};

inline QCborMap goodMap()
{
    return message::map("map", 3, 2, 0.5, message::pose(1, 2, 0), {0, 50, 100, -1, 0, 0});
}

inline QCborMap mapInfo(const char* field, const QCborValue& value)
{
    const QCborMap map = goodMap();
    return with(map, "info", with(map["info"].toMap(), field, value));
}

inline QCborMap goodTransform()
{
    return message::transform("odom", "base_link", 1, 2, 0);
}

inline QCborMap goodScan()
{
    return message::scan("laser", 0, 0.1, {1, 2, 3});
}

/// Where the frame's point comes to lie, rounded to a millimetre.
inline QPointF seen(const std::optional<Transform>& place, const QPointF& point = {})
{
    if (!place)
        return {noNumber, noNumber};
    const QPointF mapped = place->onFloor().map(point);
    return {std::round(mapped.x() * 1000) / 1000, std::round(mapped.y() * 1000) / 1000};
}

} // namespace told_robot

#endif
