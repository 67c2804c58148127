// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_INFOOPTIONS_H
#define ROBOT_INFOOPTIONS_H

#include <QCommandLineOption>
#include <QCoreApplication>
#include <QString>

class QCommandLineParser;

namespace robot {

/// The options --help and --version, and the answer to wrong usage: the same for every program.
class InfoOptions
{
    Q_DECLARE_TR_FUNCTIONS(robot::InfoOptions)

public:
    /// The exit status for wrong usage.
    static constexpr int usageError = 2;

    InfoOptions();

    void addTo(QCommandLineParser& parser) const;

    /// What was asked for of @p parser, which has parsed, to be printed; empty: nothing was.
    QString text(const QCommandLineParser& parser) const;

    /// For the standard error: @p what is wrong, and where to look. Two lines without a newline at
    /// the end.
    static QString refusal(const QString& what);

private:
    QCommandLineOption m_help;
    QCommandLineOption m_version;
};

} // namespace robot

#endif
