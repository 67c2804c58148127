// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_ROBOTLOG_H
#define HOST_DEVICE_CONNECTION_ROBOTLOG_H

#include "host/device/events/Event.h"
#include "plugin/plugin/DataRole.h"

#include <QCborMap>
#include <QObject>
#include <QString>

namespace host::device::connection {

class Listener;

/// The lines of the robot's own log, of ROS 1 or ROS 2, each for the log of the part that it comes
/// from. Those of other nodes are the base's, with the node's name: warnings and what is worse,
/// unless all are wanted.
class RobotLog : public QObject
{
    Q_OBJECT

public:
    /// Listens on every link. @p listener outlives the log.
    explicit RobotLog(Listener& listener);

    /// From now on.
    void showAllOfOthers(bool on) { m_isAllShown = on; }

Q_SIGNALS:
    void message(plugin::plugin::DataRole log, const QString& text);
    /// Every line, of whichever node.
    void logged(const host::device::events::Event& event);

private:
    QString read(const QCborMap& line);

    bool m_isAllShown = false;
};

} // namespace host::device::connection

#endif
