// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/LaserLogOptions.h"

#include "robot/recording/Replay.h"

#include <QCommandLineParser>

namespace robot {

using recording::Replay;

namespace {

QString rateName()
{
    return QStringLiteral("rate");
}

} // namespace

LaserLogOptions::LaserLogOptions()
    : m_laserLogOption(QStringLiteral("laser-log"),
                       tr("Replay the laser scans recorded in FILE repeatedly, in place of the "
                          "simulated laser."),
                       QStringLiteral("FILE")),
      m_rateOption(rateName(),
                   tr("Replay the recording FACTOR times as fast as it was recorded, 0.01 to 100 "
                      "(default: 1)."),
                   QStringLiteral("FACTOR"))
{
}

void LaserLogOptions::addTo(QCommandLineParser& parser) const
{
    parser.addOptions({m_laserLogOption, m_rateOption});
}

bool LaserLogOptions::read(const QCommandLineParser& parser, QString* error)
{
    m_file = parser.value(m_laserLogOption);
    if (parser.isSet(m_laserLogOption) && m_file.isEmpty()) {
        *error = tr("--laser-log: give the name of a file");
        return false;
    }
    if (!parser.isSet(m_rateOption))
        return true;
    if (m_file.isEmpty()) {
        *error = tr("--rate: there is nothing to replay; give a --laser-log too");
        return false;
    }
    return readRate(parser, &m_rate, error);
}

bool LaserLogOptions::readRate(const QCommandLineParser& parser, double* rate, QString* error)
{
    if (!parser.isSet(rateName()))
        return true;
    const QString text = parser.value(rateName());
    bool isNumber = false;
    *rate = text.toDouble(&isNumber);
    if (isNumber && *rate >= Replay::minimumRate && *rate <= Replay::maximumRate) // not NaN
        return true;
    *error = tr("--rate: \"%1\" is not a number from %2 to %3")
                 .arg(text)
                 .arg(Replay::minimumRate)
                 .arg(Replay::maximumRate);
    return false;
}

} // namespace robot
