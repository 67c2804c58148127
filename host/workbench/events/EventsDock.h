// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_EVENTS_EVENTSDOCK_H
#define HOST_WORKBENCH_EVENTS_EVENTSDOCK_H

#include "host/workbench/events/EventFilter.h"
#include "host/workbench/events/EventModel.h"

#include <QDockWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace host::workbench::events {

/// What happened to a device, in one list: all lines of the robot's log and of the logs in the
/// tabs, with their levels and where they came from. Hidden at first; then they are only kept.
class EventsDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p events outlives the dock.
    EventsDock(device::events::Events& events, QWidget* parent);

Q_SIGNALS:
    /// The events could not be saved; with what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void askForFile();

    EventModel m_model;
    EventFilter m_filtered{m_model};
    QLabel* m_filterLabel;
    QLineEdit* m_filter;
    QLabel* m_levelLabel;
    QComboBox* m_level;
    QPushButton* m_pause;
    QPushButton* m_clear;
    QPushButton* m_save;
    QTreeView* m_view;
};

} // namespace host::workbench::events

#endif
