// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_STOP_H
#define ROBOT_NETWORK_STOP_H

#include <QObject>
#include <QString>

namespace robot::network {

/// Whether the robot is stopped. It stays so, whoever comes and leaves, until somebody releases
/// the stop; meanwhile each part that moves asks for refusal() before it obeys a command.
class Stop : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool isEngaged() const { return m_isEngaged; }

    /// Ends every motion, by engaged(). Returns for people what came of it.
    QString engage();

    /// From now on the robot obeys again; by itself it moves nothing. Returns what came of it.
    QString release();

    /// Why nothing may be set in motion now; empty if the robot is not stopped.
    QString refusal() const;

    /// What a switch answers, with the reason why it moves nothing while the robot is stopped.
    QString qualified(const QString& message) const;

Q_SIGNALS:
    /// All that moves has to stand still, and to forget where it was going.
    void engaged();

private:
    bool m_isEngaged = false;
};

} // namespace robot::network

#endif
