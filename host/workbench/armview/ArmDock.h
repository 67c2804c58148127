// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_ARMDOCK_H
#define HOST_WORKBENCH_ARMVIEW_ARMDOCK_H

#include "host/workbench/armview/ArmControl.h"
#include "host/workbench/pace/Refresh.h"
#include "host/workbench/robotview/RobotFeed.h"

#include <QDockWidget>
#include <QTimer>

#include <vector>

class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QListView;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QToolButton;

namespace host::workbench::armview {

class ArmPicture;

/// Where the robot's arm is and is to go, and the buttons that send it there. Hidden at first;
/// nothing is followed and nothing happens while it is.
class ArmDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p device outlives the dock.
    ArmDock(device::Device& device, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// Of one axis.
    struct Row
    {
        QLabel* name;
        QLabel* present;
        QDoubleSpinBox* target;
        QToolButton* less;
        QToolButton* more;
    };

    void addRow(int axis, QGridLayout& grid);
    QLayout* makeAxes();
    QLayout* makeCommands();
    QLayout* makePositions();
    const StoredPositions::Position* chosen() const;
    void translate();
    void setActive(bool active);
    void onChanged();
    void refreshTexts();
    void refreshRemedy();
    void refreshRow(int axis, bool isHindered);
    void refreshPicture();

    robotview::RobotFeed m_feed;
    ArmControl m_control;
    StoredPositions m_positions;
    ArmPicture* m_picture;
    QLabel* m_why;
    QPushButton* m_remedy;
    Hindrance::Switch m_switch = Hindrance::Switch::None; // of the remedy
    QScrollArea* m_scroll;
    std::vector<QLabel*> m_titles; // of the axes' columns
    std::vector<Row> m_rows;
    QLabel* m_stepName;
    QDoubleSpinBox* m_step;
    QLabel* m_speedName;
    QSpinBox* m_speed;
    QPushButton* m_go;
    QPushButton* m_hold;
    QLabel* m_positionsName;
    QListView* m_list;
    QPushButton* m_goTo;
    pace::Refresh m_pictureRefresh{*this, [this] { refreshPicture(); }};
    pace::Refresh m_texts{*this, [this] { refreshTexts(); }};
    QTimer m_ageTimer{this}; // runs only while the dock is shown: what does not come grows old
};

} // namespace host::workbench::armview

#endif
