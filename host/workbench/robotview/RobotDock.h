// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ROBOTVIEW_ROBOTDOCK_H
#define HOST_WORKBENCH_ROBOTVIEW_ROBOTDOCK_H

#include "host/workbench/pace/Refresh.h"
#include "host/workbench/robotview/RobotFeed.h"
#include "host/workbench/robotview/RobotModel.h"

#include <QDockWidget>
#include <QTimer>

class QLabel;
class QPushButton;
class QToolButton;
class QTreeView;

namespace host::workbench::robotview {

class WorldView;

/// For those who work with the robot: where it is, what its laser sees, where its arm is, and what
/// is switched on. Hidden at first; nothing is followed and nothing happens while it is.
class RobotDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p device outlives the dock.
    RobotDock(device::Device& device, QWidget* parent);

    /// Whether the robot is kept in the middle; not at first.
    bool isFollowing() const;
    void setFollowing(bool isFollowing);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void setActive(bool active);
    void onChanged();
    void refreshTexts();

    RobotFeed m_feed;
    RobotModel m_model;
    QToolButton* m_follow;
    QToolButton* m_showAll;
    WorldView* m_world;
    QLabel* m_notes;
    QTreeView* m_parts;
    pace::Refresh m_texts{*this, [this] { refreshTexts(); }};
    QTimer m_ageTimer{this}; // runs only while the dock is shown: what does not come grows old
};

} // namespace host::workbench::robotview

#endif
