#ifndef HOST_WORKBENCH_TOUR_PLUGINTOUR_H
#define HOST_WORKBENCH_TOUR_PLUGINTOUR_H

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/tour/Operator.h"

#include <QCoreApplication>

class QTableView;

namespace host::workbench::tour {

/// The part of the tour that shows the plugin: every state of the connection and every tab.
class PluginTour
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::tour::PluginTour)

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
    EmbeddedRobot m_replayRobot{0}; // on any port: replays a recording
};

} // namespace host::workbench::tour

#endif
