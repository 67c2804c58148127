// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_TESTS_SHOWNWORLD_H
#define HOST_WORKBENCH_ROBOTVIEW_TESTS_SHOWNWORLD_H

#include "MoveMouse.h"
#include "Patience.h"
#include "RobotMessages.h"
#include "Tell.h"

#include "host/workbench/robotview/WorldView.h"

#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

namespace shown_world {

using namespace host::workbench::robotview;
using namespace std::chrono_literals;
using message::with;

inline constexpr double pi = 3.14159265358979323846;

/// Counts how often it is painted.
class CountingView : public WorldView
{
public:
    using WorldView::WorldView;

    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        WorldView::paintEvent(event);
    }
};

/// A view of a robot on a map of 4 x 2 metres, with a wall at its right end; the robot is at
/// (1, 1) and looks ahead.
struct World
{
    World()
    {
        state.begin();
        tell(RobotState::Map,
             message::map("map", 4, 2, 1, message::pose(0, 0, 0), {0, 0, 0, 100, 0, 0, 0, 100}));
        tell(RobotState::Odometry, message::odometry("map", "base_link", 1, 1, 0));
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::white);
        palette.setColor(QPalette::Text, Qt::black);
        palette.setColor(QPalette::Highlight, Qt::blue);
        view.setPalette(palette);
        view.resize(424, 424); // 100 pixels a metre, with the margins
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view, patience));
    }

    void tell(RobotState::Topic topic, const QCborMap& message)
    {
        ::tell(state, topic, message, RobotState::Clock::now() - age);
    }

    QColor colourAt(double x, double y)
    {
        const QImage picture = view.grab().toImage();
        return picture.pixelColor(pixelOf(x, y));
    }

    QPoint pixelOf(double x, double y) const
    {
        return view.toPixels().map(QPointF(x, y)).toPoint();
    }

    void turnWheel(const QPoint& pixel, int angle)
    {
        QWheelEvent event(pixel, view.mapToGlobal(pixel), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    }

    void moveMouse(const QPoint& pixel, Qt::MouseButtons buttons)
    {
        ::moveMouse(view, pixel, buttons);
    }

    double scale() const { return view.toPixels().m11(); }

    std::chrono::seconds age{0};
    RobotState state;
    CountingView view{state};
};

} // namespace shown_world

#endif
