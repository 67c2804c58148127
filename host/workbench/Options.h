#ifndef HOST_WORKBENCH_OPTIONS_H
#define HOST_WORKBENCH_OPTIONS_H

#include "host/device/connection/Remappings.h"
#include "robot/LaserLogOptions.h"
#include "rosbridge/protocol/Address.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace host::workbench {

/// What the command line asks for.
struct Options
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::Options)

public:
    QString pluginFile;                              ///< empty: the plugin beside the program
    QStringList devices{QStringLiteral("Quandrel")}; ///< their names, none of them twice
    /// For the first devices; the others have their embedded robot's, or the stored one.
    QList<rosbridge::protocol::Address> addresses;
    QList<device::connection::Remappings::Mapping> names; ///< of the robots' topics and services
    bool robot = true;               ///< start an embedded robot for each device
    robot::LaserLogOptions laserLog; ///< of the embedded robots
    QString language;                ///< empty: the one chosen last, or the system's
    QString appearance;              ///< empty: the one chosen last, or the system's
    QString tourFolder;              ///< empty: no tour
    QString message;                 ///< help or version text: print it and end, all else is unset

    /// @p arguments with the program's name first. On failure @p error names the argument and
    /// says what to write instead.
    static std::optional<Options> parse(const QStringList& arguments, QString* error);

    /// How much larger than usual everything is to be, which must be known before there is an
    /// application to parse() for. 1 where nothing is asked, or nothing that parse() accepts.
    static double scale(const QStringList& arguments);
};

} // namespace host::workbench

#endif
