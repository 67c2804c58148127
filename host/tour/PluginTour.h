// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_TOUR_PLUGINTOUR_H
#define HOST_TOUR_PLUGINTOUR_H

#include "host/tour/Operator.h"
#include "host/workbench/EmbeddedRobot.h"

#include <QCoreApplication>

class QTableView;

namespace host::tour {

/// The part of the tour that shows the plugin: every state of the connection and every tab.
class PluginTour
{
    Q_DECLARE_TR_FUNCTIONS(host::tour::PluginTour)

public:
    explicit PluginTour(Operator& person);

    /// Begins and ends without a connection.
    bool run();

private:
    bool connectRobot();
    bool showBase();
    bool showLaser();
    bool showRecording();
    bool showManipulator();
    bool editPosition(QTableView& table);
    bool fillPositions(QTableView& table);
    bool disconnectRobot();
    bool connectNowhere();

    Operator& m_operator;
    workbench::EmbeddedRobot m_replayRobot{0}; // on any port: replays a recording
};

} // namespace host::tour

#endif
