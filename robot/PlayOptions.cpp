// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/PlayOptions.h"

#include "robot/LaserLogOptions.h"

#include <QCommandLineParser>

namespace robot {

PlayOptions::PlayOptions()
    : m_playOption(
          QStringLiteral("play"),
          tr("Serve the topics that the ROS bag FILE holds, in place of the simulated robot."),
          QStringLiteral("FILE")),
      m_loopOption(QStringLiteral("loop"), tr("Play the bag again and again.")),
      m_startOption(QStringLiteral("start"), tr("Play the bag from SECONDS on (default: 0)."),
                    QStringLiteral("SECONDS"))
{
}

void PlayOptions::addTo(QCommandLineParser& parser) const
{
    parser.addOptions({m_playOption, m_loopOption, m_startOption});
}

bool PlayOptions::read(const QCommandLineParser& parser, QString* error)
{
    m_file = parser.value(m_playOption);
    if (!parser.isSet(m_playOption)) {
        for (const QCommandLineOption* option : {&m_loopOption, &m_startOption}) {
            if (parser.isSet(*option)) {
                *error = tr("--%1: there is nothing to play; give --play too")
                             .arg(option->names().constFirst());
                return false;
            }
        }
        return true;
    }
    if (m_file.isEmpty()) {
        *error = tr("--play: give the name of a file");
        return false;
    }
    m_options.isLooping = parser.isSet(m_loopOption);
    return LaserLogOptions::readRate(parser, &m_options.rate, error) &&
           (!parser.isSet(m_startOption) || readStart(parser.value(m_startOption), error));
}

bool PlayOptions::readStart(const QString& text, QString* error)
{
    constexpr double mostSeconds = 1e9; // some 30 years
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    if (!isNumber || !(seconds >= 0.0 && seconds <= mostSeconds)) { // NaN too
        *error = tr("--start: \"%1\" is not a number of seconds from 0 on").arg(text);
        return false;
    }
    m_options.start = std::chrono::duration_cast<recording::BagPlayer::Time>(
        std::chrono::duration<double>(seconds));
    return true;
}

} // namespace robot
