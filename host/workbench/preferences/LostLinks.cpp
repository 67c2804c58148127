// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/LostLinks.h"

namespace host::workbench::preferences {

namespace {

constexpr const char* joinAgain = "join";
constexpr const char* leave = "leave";

} // namespace

LostLinks::LostLinks() : Preference("lost_links", {joinAgain, leave}) {}

bool LostLinks::areJoinedAgain() const
{
    return code() == QLatin1String(joinAgain);
}

QString LostLinks::title() const
{
    return tr("&Lost connections");
}

QString LostLinks::name(const QString& code) const
{
    return code == QLatin1String(joinAgain) ? tr("Connect again by itself") : tr("Leave closed");
}

void LostLinks::apply()
{
    Q_EMIT changed();
}

} // namespace host::workbench::preferences
