// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TRAFFIC_TRAFFICDOCK_H
#define HOST_WORKBENCH_TRAFFIC_TRAFFICDOCK_H

#include "host/workbench/traffic/TrafficFilter.h"
#include "host/workbench/traffic/TrafficModel.h"

#include <QDockWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace host::workbench::traffic {

/// For developers of plugins: every call between the host and the plugin, in order, with what it
/// was given and how long it took. Hidden at first; then the calls are only kept.
class TrafficDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p traffic outlives the dock.
    TrafficDock(device::trace::Traffic& traffic, QWidget* parent);

Q_SIGNALS:
    /// The calls could not be saved; with what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void askForFile();

    TrafficModel m_model;
    TrafficFilter m_filtered{m_model};
    QLabel* m_filterLabel;
    QLineEdit* m_filter;
    QCheckBox* m_onlyWrites;
    QCheckBox* m_fold;
    QPushButton* m_pause;
    QPushButton* m_clear;
    QPushButton* m_save;
    QTreeView* m_view;
};

} // namespace host::workbench::traffic

#endif
