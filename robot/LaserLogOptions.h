// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LASERLOGOPTIONS_H
#define ROBOT_LASERLOGOPTIONS_H

#include <QCommandLineOption>
#include <QCoreApplication>
#include <QString>

class QCommandLineParser;

namespace robot {

/// The options --laser-log and --rate, the same for every program that runs a robot.
class LaserLogOptions
{
    Q_DECLARE_TR_FUNCTIONS(robot::LaserLogOptions)

public:
    LaserLogOptions();

    void addTo(QCommandLineParser& parser) const;

    /// Reads what was given to @p parser, which has parsed. False if something is wrong with it,
    /// and @p error says what.
    bool read(const QCommandLineParser& parser, QString* error);

    /// Reads --rate into @p rate, which stays as it is where that was not given. False, and in
    /// @p error why, if it is wrong.
    static bool readRate(const QCommandLineParser& parser, double* rate, QString* error);

    const QString& file() const { return m_file; } ///< empty: the simulated laser measures

    double rate() const { return m_rate; } ///< of the replay

private:
    QCommandLineOption m_laserLogOption;
    QCommandLineOption m_rateOption;
    QString m_file;
    double m_rate = 1.0;
};

} // namespace robot

#endif
