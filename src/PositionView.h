// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef POSITIONVIEW_H
#define POSITIONVIEW_H

#include <QDialog>
#include <QModelIndex>
#include <QPointer>
#include <QTableView>

class QSpinBox;

namespace plugin {
namespace gui {
class DeviceWidget;
} // namespace gui
} // namespace plugin

/// The table of the stored arm positions, with a menu under the right mouse button: the speed of
/// the axis that was clicked, adding and removing a position, help. Adding and removing is left
/// to whoever is connected to its signals.
class PositionView : public QTableView
{
    Q_OBJECT

public:
    /// A child of @p owner, who is asked for texts and the number of positions.
    explicit PositionView(plugin::gui::DeviceWidget* owner);

Q_SIGNALS:
    void addPos();
    /// @p pos counts from 0.
    void removePos(int pos);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void on_editSpeed();
    void on_addPos();
    void on_removePos();

private:
    QPointer<plugin::gui::DeviceWidget> m_owner;
    QModelIndex m_pressed; ///< the place of the last press, whatever the model did since
    int m_row;             ///< of the last right click; -1 beside the cells
    int m_axis;            ///< likewise; -1 also for the name
};

/// Asks for the speed of one axis, a whole number from 0 to 143. It takes and gives a cell's
/// text "target [speed]".
class SpeedEditor : public QDialog
{
    Q_OBJECT

public:
    explicit SpeedEditor(QWidget* parent);

    /// With the target rounded as it was shown.
    QString value() const;
    /// The speed stays as it is where @p text has none.
    void setValue(const QString& text);

private:
    QSpinBox* const m_speed;
    int m_target;
};

#endif
