// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_TERMINATIONSIGNALS_H
#define ROBOT_TERMINATIONSIGNALS_H

#include <QObject>

namespace robot {

/// Turns SIGINT and SIGTERM into an event, so that a terminated program ends like one that was
/// closed: connections are, and settings are stored. One per process.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

Q_SIGNALS:
    /// Once: a second signal while the program is ending is ignored.
    void received();

private:
    int m_pipe[2] = {-1, -1};
};

} // namespace robot

#endif
