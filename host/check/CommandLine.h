// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_COMMANDLINE_H
#define HOST_CHECK_COMMANDLINE_H

#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace host::check::tests {
struct Test;
}

namespace host::check {

/// What device-plugin-check was asked to do.
class CommandLine
{
public:
    enum class Action
    {
        Check,
        ShowText, ///< --help, --version or --list
        Fail,     ///< text() says what is wrong
    };

    static constexpr int usualLevel = 5;
    static constexpr int usualTimeout = 60; ///< s
    static constexpr int wholeEffort = 100; ///< %

    /// @p arguments begin with the program's name.
    explicit CommandLine(const QStringList& arguments);

    /// Whether they name one test, to be run in this process: what the program asks of itself.
    static bool isForOneTest(const QStringList& arguments);

    Action action() const { return m_action; }

    QString text() const { return m_text; }

    QString file() const { return m_file; } ///< the plugin, absolute

    QString device() const { return m_device; } ///< empty: as the plugin names it

    QStringList widgets() const { return m_widgets; } ///< that are asked for

    /// Whether each of these is to be there, or one is enough.
    bool areWidgetsNamed() const { return m_areWidgetsNamed; }

    QStringList sparedVariables() const { return m_sparedVariables; }

    int level() const { return m_level; }

    quint32 seed() const { return m_seed; } ///< drawn if none was given

    int timeout() const { return m_timeout; } ///< of one test, in seconds

    /// How much of what tests repeat often is done, in percent.
    int effort() const { return m_effort; }

    QString recording() const { return m_recording; } ///< a file, absolute; empty: none

    QString jsonFile() const { return m_jsonFile; } ///< empty: none

    QString junitFile() const { return m_junitFile; } ///< likewise

    QString reproducedFile() const { return m_reproducedFile; } ///< with actions; empty: none

    /// Whether the test is part of the run.
    bool isWanted(const tests::Test& test) const;
    /// Whether it would be, but was to be left out.
    bool isSkipped(const tests::Test& test) const;

    QString test() const { return m_test; } ///< the one, by its name

    QString resultFile() const { return m_resultFile; } ///< where it says how it ended

private:
    void read(const QStringList& arguments);
    void finish(Action action, const QString& text);
    void readReproduced();
    void readRecording();
    void readFile(const QStringList& arguments);
    /// The number of an option, if that is from @p least to @p most.
    qint64 number(const QCommandLineParser& parser, const QString& option, qint64 usual,
                  qint64 least, qint64 most);
    QString list() const;

    Action m_action = Action::Check;
    QString m_text;
    QString m_file;
    QString m_device;
    QStringList m_widgets{QStringLiteral("toolbar"), QStringLiteral("dialog")};
    bool m_areWidgetsNamed = false;
    QStringList m_sparedVariables;
    int m_level = usualLevel;
    quint32 m_seed = 0;
    int m_timeout = usualTimeout;
    int m_effort = wholeEffort;
    QString m_recording;
    QString m_jsonFile;
    QString m_junitFile;
    QStringList m_only;
    QStringList m_skip;
    QString m_reproducedFile;
    QString m_test;
    QString m_resultFile;
};

} // namespace host::check

#endif
