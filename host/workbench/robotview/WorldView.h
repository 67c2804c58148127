// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_WORLDVIEW_H
#define HOST_WORKBENCH_ROBOTVIEW_WORLDVIEW_H

#include "host/workbench/pace/Refresh.h"
#include "host/workbench/robotview/MapPicture.h"
#include "host/workbench/robotview/RobotState.h"
#include "host/workbench/robotview/Ruler.h"

#include <QWidget>

namespace host::workbench::robotview {

/// The world from above: the map, the robot, the path it drove, and what its laser sees. The wheel
/// and + and - zoom, dragging and the arrow keys move, Home shows all; dragging with Shift
/// measures.
class WorldView : public QWidget
{
    Q_OBJECT

public:
    /// @p state outlives the view. Shows all at first.
    explicit WorldView(const RobotState& state, QWidget* parent = nullptr);

    /// The state changed, or time passed: it is painted soon, at most 30 times a second.
    void refresh();

    bool isFollowing() const { return m_mode == Mode::Follow; }

    /// Keeps the robot in the middle until the view is moved by hand.
    void setFollowing(bool following);
    /// Keeps all that there is in sight until the view is moved by hand.
    void showAll();
    /// @p pixel stays where it is, or the robot while it is followed.
    void zoom(double factor, const QPointF& pixel);

    /// What a person measures with the mouse.
    const Ruler& ruler() const { return m_ruler; }

    /// From the world, metres, to the widget's pixels.
    QTransform toPixels() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void followingChanged(bool following);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Mode
    {
        ShowAll,
        Follow,
        Free
    };

    void setMode(Mode mode);
    void move(const QPointF& pixels);
    void arrange();
    QPointF placeAt(const QPointF& pixel) const;
    QRectF extent() const;
    void paintMap(QPainter& painter);
    void paintRays(QPainter& painter) const;
    void paintPath(QPainter& painter) const;
    void paintFootprint(QPainter& painter) const;
    void paintRobot(QPainter& painter) const;
    QColor robotColour() const;
    void paintScale(QPainter& painter) const;

    const RobotState& m_state;
    Mode m_mode = Mode::ShowAll;
    QPointF m_centre;           // of the view, in the world
    double m_scale = 50;        // pixels a metre
    QPoint m_dragged;           // where the mouse was
    bool m_isMeasuring = false; // by dragging
    Ruler m_ruler;
    MapPicture m_map;
    pace::Refresh m_refresh{*this, [this] { update(); }};
};

} // namespace host::workbench::robotview

#endif
