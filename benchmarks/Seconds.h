// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_SECONDS_H
#define QUANDREL_SECONDS_H

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <optional>

/// For programs that print a table: keeps out of it what the screenless platform says of every
/// window. Before there is an application.
inline void keepTableClean()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith("This plugin does not support "))
            QTextStream(stderr) << text.left(200) << '\n';
    });
}

/// How long to measure each line of the table, by the option "--seconds" of @p application. None,
/// and the reason is printed, for what is no such time: the program ends with status 2. @p parser
/// has the program's other options.
inline std::optional<int> secondsOf(const QCoreApplication& application, QCommandLineParser& parser)
{
    const QCommandLineOption option("seconds", "Measure each line for <number> seconds.", "number",
                                    "10");
    parser.addOption(option);
    parser.addHelpOption();
    parser.process(application);
    bool isNumber = false;
    const int seconds = parser.value(option).toInt(&isNumber);
    if (isNumber && seconds >= 1 && seconds <= 3600)
        return seconds;
    QTextStream(stderr) << "--seconds: \"" << parser.value(option)
                        << "\" is not a number from 1 to 3600\n";
    return std::nullopt;
}

inline std::optional<int> secondsOf(const QCoreApplication& application)
{
    QCommandLineParser parser;
    return secondsOf(application, parser);
}

#endif
