#ifndef HOST_WORKBENCH_OPTIONS_H
#define HOST_WORKBENCH_OPTIONS_H

#include "robot/LaserLogOptions.h"
#include "robot/link/Address.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

namespace host::workbench {

/// What the command line asks for.
struct Options
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::Options)

public:
    QString pluginFile; ///< empty: the plugin beside the program
    QString deviceName = QStringLiteral("Quandrel");
    std::optional<robot::link::Address> address; ///< none: the embedded robot's, or the stored one
    bool robot = true;                           ///< start the embedded robot
    robot::LaserLogOptions laserLog;             ///< of the embedded robot
    QString language;                            ///< empty: the one chosen last, or the system's
    QString tourFolder;                          ///< empty: no tour
    QString message; ///< help or version text: print it and end, all else is unset

    /// @p arguments with the program's name first. On failure @p error names the argument and
    /// says what to write instead.
    static std::optional<Options> parse(const QStringList& arguments, QString* error);
};

} // namespace host::workbench

#endif
