// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_JUNITREPORT_H
#define HOST_WORKBENCH_SCRIPT_JUNITREPORT_H

#include "host/workbench/script/Player.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace host::workbench::script {

/// What became of a script, as servers for continuous integration read it: one test case for each
/// step, in the XML of JUnit.
/// @p suite is the script's name.
QByteArray junitReport(const QString& suite, const std::vector<Player::Step>& steps);

} // namespace host::workbench::script

#endif
