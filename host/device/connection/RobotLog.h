// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_ROBOTLOG_H
#define HOST_DEVICE_CONNECTION_ROBOTLOG_H

#include "plugin/plugin/DataRole.h"

#include <QCborMap>
#include <QObject>
#include <QString>

namespace host::device::connection {

class Listener;

/// The lines of the robot's own log, each for the log of the part that it comes from. Those of
/// other parts are the base's, with the part's name.
class RobotLog : public QObject
{
    Q_OBJECT

public:
    /// Listens on every link. @p listener outlives the log.
    explicit RobotLog(Listener& listener);

Q_SIGNALS:
    void message(plugin::plugin::DataRole log, const QString& text);

private:
    QString read(const QCborMap& line);
};

} // namespace host::device::connection

#endif
