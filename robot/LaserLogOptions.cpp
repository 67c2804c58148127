// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/LaserLogOptions.h"

#include "robot/recording/Replay.h"

#include <QCommandLineParser>

namespace robot {

using recording::Replay;

LaserLogOptions::LaserLogOptions()
    : m_laserLogOption(QStringLiteral("laser-log"),
                       tr("Replay the laser scans recorded in FILE repeatedly, in place of the "
                          "simulated laser."),
                       QStringLiteral("FILE")),
      m_rateOption(QStringLiteral("rate"),
                   tr("Replay the laser log FACTOR times as fast as it was recorded, 0.01 to 100 "
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
    const QString text = parser.value(m_rateOption);
    bool isNumber = false;
    m_rate = text.toDouble(&isNumber);
    if (isNumber && m_rate >= Replay::minimumRate && m_rate <= Replay::maximumRate) // not NaN
        return true;
    *error = tr("--rate: \"%1\" is not a number from %2 to %3")
                 .arg(text)
                 .arg(Replay::minimumRate)
                 .arg(Replay::maximumRate);
    return false;
}

} // namespace robot
