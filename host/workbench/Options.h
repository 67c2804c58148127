// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPTIONS_H
#define HOST_WORKBENCH_OPTIONS_H

#include "host/device/connection/Remappings.h"
#include "robot/LaserLogOptions.h"
#include "rosbridge/protocol/Address.h"

#include <QCoreApplication>
#include <QList>
#include <QSslCertificate>
#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace host::workbench {

/// What the command line asks of the workbench.
class Options
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::Options)

public:
    enum class Action
    {
        Run,
        ShowText, ///< --help or --version
        Fail,     ///< text() says what is wrong
    };

    /// @p arguments begin with the program's name.
    explicit Options(const QStringList& arguments);

    Action action() const { return m_action; }

    QString text() const { return m_text; }

    QString pluginFile() const { return m_pluginFile; } ///< empty: the program's own plugin

    QStringList devices() const { return m_devices; } ///< their names, none of them twice

    /// For the first devices; the others have their embedded robot's, or the stored one.
    QList<rosbridge::protocol::Address> addresses() const { return m_addresses; }

    /// That the devices are to believe.
    const QList<QSslCertificate>& certificates() const { return m_certificates; }

    /// Of the robots' topics and services.
    QList<device::connection::Remappings::Mapping> names() const { return m_names; }

    bool hasRobot() const { return m_hasRobot; } ///< an embedded one for each device

    const robot::LaserLogOptions& laserLog() const { return m_laserLog; } ///< of these robots

    QString replayFile() const { return m_replayFile; } ///< empty: there are devices

    bool isAssertion() const { return m_isAssertion; } ///< the replay is compared, not shown

    QString recordFile() const { return m_recordFile; } ///< empty: nothing is recorded

    QString language() const { return m_language; } ///< empty: the one chosen last, or the system's

    QString appearance() const { return m_appearance; } ///< likewise

    QString scriptFile() const { return m_scriptFile; } ///< to be run; empty: none

    QString outputFolder() const { return m_outputFolder; } ///< of what the script writes

    QString reportFile() const { return m_reportFile; } ///< on the script, for JUnit; empty: none

    QString bugReportFile() const { return m_bugReportFile; } ///< to be written; empty: none

    /// The script of the tour, which comes with this program.
    static QString tourFile();

    /// How much larger than usual everything is to be, which must be known before there is an
    /// application, and so before all else. 1 where nothing is asked, or nothing that is accepted.
    static double scale(const QStringList& arguments);

private:
    void read(const QStringList& arguments);
    void finish(Action action, const QString& text);
    void readDevices(const QStringList& names);
    void readAddresses(const QStringList& texts);
    void readCertificates(const QStringList& files);
    void readNames(const QStringList& texts);
    void readLaserLog(const QCommandLineParser& parser);
    void readScript(const QCommandLineParser& parser);
    void readBugReport(const QString& file);
    void readLanguage(const QString& code);
    void readAppearance(const QString& code);

    Action m_action = Action::Run;
    QString m_text;
    QString m_pluginFile;
    QStringList m_devices{QStringLiteral("Quandrel")};
    QList<rosbridge::protocol::Address> m_addresses;
    QList<QSslCertificate> m_certificates;
    QList<device::connection::Remappings::Mapping> m_names;
    bool m_hasRobot = true;
    robot::LaserLogOptions m_laserLog;
    QString m_replayFile;
    bool m_isAssertion = false;
    QString m_recordFile;
    QString m_language;
    QString m_appearance;
    QString m_scriptFile;
    QString m_outputFolder;
    QString m_reportFile;
    QString m_bugReportFile;
};

} // namespace host::workbench

#endif
