// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_PLOTSDOCK_H
#define HOST_WORKBENCH_PLOTS_PLOTSDOCK_H

#include "host/workbench/pace/Refresh.h"
#include "host/workbench/plots/PointTable.h"
#include "host/workbench/plots/Quantities.h"
#include "host/workbench/plots/Recorder.h"

#include <QDockWidget>
#include <QStringList>
#include <QStringListModel>
#include <QTimer>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace host::workbench::plots {

class PlotView;

/// What somebody chose among the numbers of a device and its robot, over time. Hidden at first;
/// nothing is followed and nothing happens while it is.
class PlotsDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p device outlives the dock.
    PlotsDock(device::Device& device, QWidget* parent);

    /// Which quantities are plotted, to be remembered; of @p keys those that are none are left out.
    QStringList chosen() const;
    void choose(const QStringList& keys);

Q_SIGNALS:
    /// The values could not be saved; with what to do.
    void problem(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeControls();
    QWidget* makeList();
    void translate();
    void setActive(bool active);
    void setPaused(bool paused);
    void add(const Quantity& quantity);
    void addEntered();
    void removeSelected();
    void clear();
    void showQuantities();
    void showLines();
    void showColours();
    void enable();
    void onRecorded();
    void refreshPlot();
    void refreshValues();
    void askForFile();

    device::Device& m_device;
    Recorder m_recorder;
    Quantities m_quantities;
    PointTable m_points;
    QStringListModel m_names;   // of the quantities, to choose among
    std::vector<int> m_colours; // of the lines
    QLabel* m_chooserLabel;
    QComboBox* m_chooser;
    QPushButton* m_add;
    QLabel* m_spanLabel;
    QComboBox* m_span;
    QPushButton* m_pause;
    QPushButton* m_clear;
    QPushButton* m_save;
    PlotView* m_view;
    QTreeWidget* m_list;
    QPushButton* m_remove;
    pace::Refresh m_plot{*this, [this] { refreshPlot(); }};
    QTimer m_valueTimer{this}; // runs only while the dock is shown
};

} // namespace host::workbench::plots

#endif
