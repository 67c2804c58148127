// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPERATION_DRIVEPAD_H
#define HOST_WORKBENCH_OPERATION_DRIVEPAD_H

#include <QPointF>
#include <QSet>
#include <QWidget>

namespace host::workbench::operation {

/// A square on which a person holds where a robot is to drive: with the mouse or a finger, forward
/// and to the sides of the centre, or with the arrow keys or WASD while it has the focus. It knows
/// no robot. What is held counts as let go when the focus, the window or the pad itself goes.
class DrivePad : public QWidget
{
    Q_OBJECT

public:
    DrivePad();

    /// Shown as one that drives, or as one that does not.
    void setDriving(bool isDriving);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Held, in this direction: parts of the greatest speeds, from -1 to 1.
    void held(double forward, double left);
    /// Nothing is held any more.
    void letGo();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool touch(QEvent& event);
    void press(const QPointF& position);
    void releasePointer();
    void releaseAll();
    void tell();
    QRectF square() const;
    QPointF direction() const;

    bool m_isDriving = false;
    bool m_isPointed = false; // by mouse or finger
    QPointF m_pointer;        // from the centre: right and down, from -1 to 1
    QSet<int> m_keys;         // that are held
};

} // namespace host::workbench::operation

#endif
