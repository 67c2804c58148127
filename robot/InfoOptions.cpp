// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/InfoOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace robot {

InfoOptions::InfoOptions()
    : m_help({QStringLiteral("h"), QStringLiteral("help")}, tr("Show this help and exit.")),
      m_version({QStringLiteral("v"), QStringLiteral("version")}, tr("Show the version and exit."))
{
}

void InfoOptions::addTo(QCommandLineParser& parser) const
{
    parser.addOptions({m_help, m_version});
}

QString InfoOptions::text(const QCommandLineParser& parser) const
{
    if (parser.isSet(m_help)) {
        // Qt writes <FILE>. The column to the right of it stays where it is.
        static const QRegularExpression placeholder(QStringLiteral("^(  -[^\n]*)<([^>\n]*)>( *)"),
                                                    QRegularExpression::MultilineOption);
        return parser.helpText().replace(placeholder, QStringLiteral("\\1\\2\\3  ")).trimmed();
    }
    if (parser.isSet(m_version)) {
        return QCoreApplication::applicationName() + QLatin1Char(' ') +
               QCoreApplication::applicationVersion();
    }
    return {};
}

QString InfoOptions::refusal(const QString& what)
{
    const QString program = QCoreApplication::applicationName();
    return QStringLiteral("%1: %2\n").arg(program, what) + tr("Try '%1 --help'.").arg(program);
}

} // namespace robot
