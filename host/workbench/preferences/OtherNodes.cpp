// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/OtherNodes.h"

namespace host::workbench::preferences {

namespace {

constexpr const char* warnings = "warnings";
constexpr const char* everything = "all";

} // namespace

OtherNodes::OtherNodes() : Preference("other_nodes", {warnings, everything}) {}

bool OtherNodes::areAllShown() const
{
    return code() == QLatin1String(everything);
}

QString OtherNodes::title() const
{
    return tr("Log of other &nodes");
}

QString OtherNodes::name(const QString& code) const
{
    return code == QLatin1String(everything) ? tr("All messages") : tr("Warnings and errors");
}

void OtherNodes::apply()
{
    Q_EMIT changed();
}

} // namespace host::workbench::preferences
