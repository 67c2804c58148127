// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_STARTPAGE_H
#define HOST_WORKBENCH_WINDOW_STARTPAGE_H

#include <QWidget>

class QLabel;

namespace host::workbench::window {

class Lamp;

/// The middle of the window where a plugin brings no dialog: how the connection stands and how
/// to go on from there.
class StartPage : public QWidget
{
    Q_OBJECT

public:
    /// @p robot says where the simulated robot runs; empty where there is none.
    StartPage(const QString& deviceName, const QString& robot, QWidget* parent = nullptr);

    /// @p state and @p isLost as in Lamp::setState(). Sets all texts: also for a new language.
    void setConnection(int state, bool isLost, const QString& status);

private:
    Lamp* m_lamp;
    QLabel* m_status;
    QLabel* m_steps;
    QLabel* m_note;
    QString m_robot;
};

} // namespace host::workbench::window

#endif
