// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_COMMANDLINE_H
#define ROBOT_COMMANDLINE_H

#include "robot/LaserLogOptions.h"
#include "robot/PlayOptions.h"
#include "rosbridge/protocol/Address.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace robot {

/// What quandrel-robot was asked to do.
class CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(robot::CommandLine)

public:
    enum class Action
    {
        Run,
        ShowText, ///< --help or --version
        Fail,     ///< text() says what is wrong
    };

    /// @p arguments begin with the program's name.
    explicit CommandLine(const QStringList& arguments);

    Action action() const { return m_action; }

    QString text() const { return m_text; }

    rosbridge::protocol::Address address() const { return m_address; }

    quint32 seed() const { return m_seed; } ///< drawn if none was given

    QStringList allowedOrigins() const { return m_allowedOrigins; }

    const LaserLogOptions& laserLog() const { return m_laserLog; }

    const PlayOptions& play() const { return m_play; }

private:
    void read(const QStringList& arguments);
    void finish(Action action, const QString& text);
    void readAddress(const QString& text);
    void readPort(const QString& text);
    void readSeed(const QString& text);
    void readOrigins(const QStringList& origins);

    Action m_action = Action::Run;
    QString m_text;
    rosbridge::protocol::Address m_address;
    quint32 m_seed;
    QStringList m_allowedOrigins;
    LaserLogOptions m_laserLog;
    PlayOptions m_play;
};

} // namespace robot

#endif
