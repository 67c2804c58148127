// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_PLAYOPTIONS_H
#define ROBOT_PLAYOPTIONS_H

#include "robot/recording/BagPlayer.h"

#include <QCommandLineOption>
#include <QCoreApplication>
#include <QString>

class QCommandLineParser;

namespace robot {

/// The options --play, --loop and --start.
class PlayOptions
{
    Q_DECLARE_TR_FUNCTIONS(robot::PlayOptions)

public:
    PlayOptions();

    void addTo(QCommandLineParser& parser) const;

    /// Reads what was given to @p parser, which has parsed and knows LaserLogOptions, too. False if
    /// something is wrong with it, and @p error says what.
    bool read(const QCommandLineParser& parser, QString* error);

    const QString& file() const { return m_file; } ///< empty: the robot is simulated

    const recording::BagPlayer::Options& options() const { return m_options; }

private:
    bool readStart(const QString& text, QString* error);

    QCommandLineOption m_playOption;
    QCommandLineOption m_loopOption;
    QCommandLineOption m_startOption;
    QString m_file;
    recording::BagPlayer::Options m_options;
};

} // namespace robot

#endif
